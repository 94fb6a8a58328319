// Animated cursors of an X server. The server moves them by itself, also while the program is busy and runs no timer.
// Free of Qt, whose names Xlib's macros would break; `display` is Xlib's Display*.
#pragma once

#include <cstdint>
#include <span>

namespace pyxis::ui {

using XCursorId = unsigned long;  // 0 is none

struct XCursorStep {
  int width, height, hotX, hotY;
  const std::uint32_t* pixels;  // 0xAARRGGBB, multiplied by their alpha, lines from the top down
  std::uint32_t ticks;          // 1/60 s
};

// 0 when the server can't show one. It lives until the display is closed.
XCursorId MakeXCursor(void* display, std::span<const XCursorStep> steps);
void DefineXCursor(void* display, unsigned long window, XCursorId cursor);

}  // namespace pyxis::ui
