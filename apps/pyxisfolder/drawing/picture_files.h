// Pictures as the bytes of files.
#pragma once

#include <span>

#include "pyxisfolder/drawing/canvas.h"
#include "pyxisfolder/folder.h"

namespace pyxis::folder {

// A Windows bitmap with 256 colours and run-length coded lines; see-through pixels come out in their own colour. In a
// picture of more colours the most alike ones become one.
Bytes MakeBmp(const Canvas& picture);

// 32-bit PNG, its data stored and not compressed.
Bytes MakePng(const Canvas& picture);

// A picture of a cursor or icon file: 32-bit pixels, and a mask bit for the pixels that are mostly see-through.
struct CursorImage {
  Canvas picture;  // at most 256 pixels wide and high
  int hotX = 0, hotY = 0;
};
Bytes MakeIcon(std::span<const CursorImage> images);  // .ico, one picture a size
Bytes MakeCursor(const CursorImage& image);           // .cur

struct Animation {
  std::vector<CursorImage> frames;     // of one size
  std::vector<std::uint8_t> sequence;  // frame numbers in the order of the steps; empty: the frames in their order
  int ticks;                           // 1/60 s a step
};
// .ani: a RIFF file of the form ACON.
Bytes MakeAni(const Animation& animation);

}  // namespace pyxis::folder
