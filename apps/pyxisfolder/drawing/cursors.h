// The two busy cursors and the program's icon.
#pragma once

#include "pyxisfolder/drawing/picture_files.h"

namespace pyxis::folder {

Animation DrawMetronome();  // swings once a second
Animation DrawDinosaur();   // walks

// A chip that takes a program; `size` in pixels.
Canvas DrawProgramIcon(int size);

}  // namespace pyxis::folder
