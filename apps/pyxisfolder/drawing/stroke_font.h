// Lettering of pen strokes: capital letters, digits and a few signs, at any height.
#pragma once

#include <string_view>

#include "pyxisfolder/drawing/canvas.h"

namespace pyxis::folder {

enum class Align { Left, Center, Right };

struct Lettering {
  double height;  // of a capital letter
  Color color;
  double weight = 0.14;  // width of the pen, in heights
};

double TextWidth(std::string_view text, double height);

// `at` is the top of the letters at their left end, middle or right end. Small letters are written as capitals; a sign
// without a glyph is left blank.
void DrawText(Canvas& canvas, std::string_view text, Point at, Align align, const Lettering& lettering);

}  // namespace pyxis::folder
