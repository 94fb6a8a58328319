// A picture of a cursor or icon file (CUR, ICO).
#pragma once

#include <QImage>
#include <cstdint>
#include <optional>
#include <span>

namespace pyxis::ui {

struct CursorPicture {
  QImage image;  // premultiplied ARGB, at most 256 pixels wide and high
  QPoint hotSpot;
};

// The first picture of a file's bytes; nothing for what Qt doesn't read as one. An icon's hot spot is its middle.
std::optional<CursorPicture> ReadCursorPicture(std::span<const std::uint8_t> file);

}  // namespace pyxis::ui
