// Shapes of a cursor: everything is drawn twice, first wider and white, so that the cursor shows on dark and light.
#pragma once

#include "pyxisfolder/drawing/canvas.h"

namespace pyxis::folder {

class Outlined {
 public:
  // Wide shapes all in white, or the shapes as they are.
  Outlined(Canvas& canvas, bool wide) : canvas_(canvas), grow_(wide ? 1.2 : 0), wide_(wide) {}

  void Circle(Point center, double radius, Color color) { canvas_.Circle(center, radius + grow_, In(color)); }
  void Line(Point from, Point to, double width, Color color) { canvas_.Line(from, to, width + 2 * grow_, In(color)); }
  void Polygon(std::vector<Point> corners, Color color) {
    canvas_.Polygon(corners, In(color));
    if (!wide_) return;
    corners.push_back(corners.front());
    canvas_.Polyline(corners, 2 * grow_, In(color));
  }

 private:
  Color In(Color color) const { return wide_ ? Color{255, 255, 255} : color; }

  Canvas& canvas_;
  double grow_;
  bool wide_;
};

// Runs `draw` for the white rim and then for the shapes.
template <typename Draw>
void DrawWithRim(Canvas& canvas, Draw draw) {
  for (const bool wide : {true, false}) {
    Outlined pen(canvas, wide);
    draw(pen);
  }
}

}  // namespace pyxis::folder
