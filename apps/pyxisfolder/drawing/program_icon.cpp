#include "pyxisfolder/drawing/cursors.h"

namespace pyxis::folder {

Canvas DrawProgramIcon(int size) {
  constexpr double kUnits = 256;
  constexpr Color kTile{36, 92, 168};
  constexpr Color kTileEdge{22, 62, 120};
  constexpr Color kChip{30, 34, 42};
  constexpr Color kPins{226, 232, 240};
  constexpr Color kArrow{255, 196, 64};
  Canvas canvas(size, size, size / kUnits);
  canvas.RoundRect({8, 8}, 240, 240, 44, kTileEdge);
  canvas.RoundRect({16, 16}, 224, 224, 38, kTile);
  const double firstPin = size < 32 ? 64 : 72;  // on whole pixels also in the smallest icon
  for (int i = 0; i < 4; ++i) {
    const double y = firstPin + 32 * i;
    canvas.Rect({36, y}, 184, 16, kPins);
  }
  canvas.RoundRect({64, 48}, 128, 160, 12, kChip);
  canvas.Rect({112, 68}, 32, 64, kArrow);
  const Point head[] = {{80, 124}, {176, 124}, {128, 180}};
  canvas.Polygon(head, kArrow);
  return canvas;
}

}  // namespace pyxis::folder
