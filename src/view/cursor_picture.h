// A picture of a cursor or icon file (CUR, ICO).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pyxis {

struct CursorPicture {
  int width, height;                // 1 to 256 pixels
  int hotX, hotY;                   // within the picture
  std::vector<std::uint32_t> argb;  // 0xAARRGGBB, lines from the top down, colours not multiplied by their alpha
};

// The first picture of a file's bytes. Bitmaps of 1, 4, 8, 24 and 32 bits a pixel; nothing for any other, for PNG data
// and for a file that is cut short or contradicts itself. An icon's hot spot is its middle. A pixel that would invert
// the screen is black.
std::optional<CursorPicture> ReadCursorPicture(std::span<const std::uint8_t> file);

}  // namespace pyxis
