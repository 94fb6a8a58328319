// Animated cursors of an X server. The server moves them by itself, also while the program is busy and runs no timer.
// Free of Qt, whose names Xlib's macros would break; `display` is Xlib's Display*.
#pragma once

namespace pyxis {
struct AnimatedCursor;
}

namespace pyxis::ui {

using XCursorId = unsigned long;  // 0 is none

// 0 when the server can't show one. It lives until the display is closed.
XCursorId MakeXCursor(void* display, const AnimatedCursor& cursor);
void DefineXCursor(void* display, unsigned long window, XCursorId cursor);

}  // namespace pyxis::ui
