// The pictures of a program folder: package figures, busy cursors, the program's icon. They are drawn with Qt, which
// needs no display for it.
#pragma once

#include <QImage>
#include <string>
#include <string_view>
#include <vector>

namespace pyxis::folder {

// Everything below `dir`, which is made if need be. False, with a line on standard error, when a file can't be written.
bool DrawPictures(const std::string& dir);
// The program's icon in every usual size, as an icon theme keeps it: 48x48/apps/pyxisload.png. False as above.
bool DrawIcons(const std::string& dir);

// Package figures: how an IC sits in the writer's socket, or how it is wired to the writer on its own board.
enum class Wiring { ExhvIsp, Isp };
QImage DrawSocketFigure(std::string_view label);
QImage DrawIspFigure(std::string_view label, Wiring wiring);

struct Animation {
  std::vector<QImage> frames;  // of one size
  std::vector<int> sequence;   // frame numbers in the order of the steps; empty: the frames in their order
  int ticks;                   // 1/60 s a step
};
Animation DrawMetronome();  // swings once a second
Animation DrawDinosaur();   // walks

// A chip that takes a program; `size` in pixels.
QImage DrawProgramIcon(int size);

}  // namespace pyxis::folder
