// The IC on its own board, wired to the writer's ISP header. The lines go by name: which pins of a package they are on
// stands in the IC's data sheet.
#include "pyxisfolder/drawing/figure.h"
#include "pyxisfolder/drawing/figure_parts.h"
#include "pyxisfolder/drawing/stroke_font.h"

namespace pyxis::folder {

namespace {

using namespace figure;

struct Wire {
  std::string_view name;
  Color color;
};
constexpr Wire kWires[] = {
    {"VPP", {222, 112, 28}}, {"VDD", {206, 44, 44}}, {"VSS", {40, 46, 56}},
    {"PGC", {38, 98, 200}},  {"PGD", {22, 140, 92}},
};

constexpr double kFirstWire = 110, kWirePitch = 31;
constexpr Point kWriterAt{22, 52}, kBoardAt{256, 52};
constexpr double kBoxHeight = 206;
constexpr double kWriterWidth = 134, kBoardWidth = 184;
constexpr Point kChipAt{kBoardAt.x + 40, kBoardAt.y + 12};
constexpr double kPadX = kWriterAt.x + kWriterWidth - 22;  // the header's pins
constexpr double kChipWidth = 124;
constexpr Color kWriterCase{72, 82, 98};
constexpr Color kWriterEdge{44, 52, 64};

void DrawWriter(Canvas& canvas) {
  canvas.RoundRect(kWriterAt, kWriterWidth, kBoxHeight, 8, kWriterEdge);
  canvas.RoundRect({kWriterAt.x + 2, kWriterAt.y + 2}, kWriterWidth - 4, kBoxHeight - 4, 6, kWriterCase);
  DrawText(canvas, "WRITER", {kWriterAt.x + 14, kWriterAt.y + 16}, Align::Left, {kTextHeight, kLight});
  // The header's shroud.
  canvas.RoundRect({kPadX - 13, kFirstWire - 15}, 26, 4 * kWirePitch + 30, 3, kChipEdge);
}

void DrawBoard(Canvas& canvas, std::string_view name) {
  canvas.RoundRect(kBoardAt, kBoardWidth, kBoxHeight, 8, kBoardEdge);
  canvas.RoundRect({kBoardAt.x + 2, kBoardAt.y + 2}, kBoardWidth - 4, kBoxHeight - 4, 6, kBoard);
  canvas.RoundRect(kChipAt, kChipWidth, kBoxHeight - 24, 5, kChipEdge);
  canvas.RoundRect({kChipAt.x + 2, kChipAt.y + 2}, kChipWidth - 4, kBoxHeight - 28, 4, kChip);
  DrawText(canvas, name, {kChipAt.x + kChipWidth / 2, kWriterAt.y + 22}, Align::Center, {kTextHeight, kMetal});
}

}  // namespace

Canvas DrawIspFigure(std::string_view label, Wiring wiring) {
  Canvas canvas = Begin(label, wiring == Wiring::ExhvIsp ? "EXHV ISP" : "ISP", "PINS BY NAME: SEE THE DATA SHEET");
  DrawWriter(canvas);
  DrawBoard(canvas, NameOf(label));
  double y = kFirstWire;
  for (const Wire& wire : kWires) {
    const Point pad{kPadX, y};
    const bool used = wiring == Wiring::ExhvIsp || wire.name != "VPP";
    canvas.Rect({pad.x - 5, pad.y - 5}, 10, 10, used ? kMetal : kFaintInk);
    if (used) {
      const Point legTip{kChipAt.x - 16, y};
      canvas.Line({legTip.x, y}, {kChipAt.x, y}, 9, kLight);
      canvas.Line(pad, legTip, 7, kPaper);
      canvas.Line(pad, legTip, 4.5, wire.color);
      canvas.Circle(pad, 4.5, wire.color);
      canvas.Circle(legTip, 4.5, wire.color);
      DrawText(canvas, wire.name, {pad.x - 20, y - kTextHeight / 2}, Align::Right, {kTextHeight, kLight});
      DrawText(canvas, wire.name, {kChipAt.x + 12, y - kTextHeight / 2}, Align::Left, {kTextHeight, kLight});
    }
    y += kWirePitch;
  }
  return canvas;
}

}  // namespace pyxis::folder
