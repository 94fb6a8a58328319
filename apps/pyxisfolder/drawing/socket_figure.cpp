// The IC in the writer's socket: two rows of pins sit in the socket itself, four sides on an adapter board.
#include <algorithm>
#include <string>

#include "pyxisfolder/drawing/figure.h"
#include "pyxisfolder/drawing/figure_parts.h"
#include "pyxisfolder/drawing/stroke_font.h"

namespace pyxis::folder {

namespace {

using namespace figure;

constexpr Color kSocket{64, 104, 150};
constexpr Color kSocketEdge{38, 68, 104};
constexpr Color kSlot{30, 50, 76};
constexpr Color kContact{226, 184, 84};

// The socket lies on its side, its lever on the left: 24 columns of two contacts.
constexpr int kColumns = 24;
constexpr double kPitch = 14;
constexpr Point kSocketAt{94, 82};
constexpr double kSocketWidth = 352, kSocketHeight = 150;
constexpr double kFirstColumn = kSocketAt.x + 15;
constexpr double kRowInset = 18;
constexpr double kUpperRow = kSocketAt.y + kRowInset, kLowerRow = kSocketAt.y + kSocketHeight - kRowInset;

double ColumnAt(int place) { return kFirstColumn + place * kPitch; }

void DrawLever(Canvas& canvas) {
  const Point hinge{kSocketAt.x + 4, kSocketAt.y + 22}, knob{30, kSocketAt.y + 22};
  canvas.Line(hinge, knob, 9, kFaintInk);
  canvas.Line(hinge, knob, 6, kMetal);
  canvas.Circle(knob, 12, kSocketEdge);
  canvas.Circle(knob, 9.5, kSocket);
}

void DrawSocket(Canvas& canvas) {
  DrawLever(canvas);
  canvas.RoundRect(kSocketAt, kSocketWidth, kSocketHeight, 8, kSocketEdge);
  canvas.RoundRect({kSocketAt.x + 2, kSocketAt.y + 2}, kSocketWidth - 4, kSocketHeight - 4, 6, kSocket);
  for (int place = 0; place < kColumns; ++place)
    for (const double y : {kUpperRow, kLowerRow}) canvas.RoundRect({ColumnAt(place) - 3, y - 9}, 6, 18, 2, kSlot);
}

void DrawNumber(Canvas& canvas, int number, Point at, Align align) {
  DrawText(canvas, std::to_string(number), at, align,
           {kNumberHeight, number == 1 ? kMark : kInk, number == 1 ? 0.18 : 0.14});
}

void DrawTwoRows(Canvas& canvas, const Package& package, std::string_view name) {
  const int perSide = package.Pins() / 2;
  constexpr double kBodyInset = 16;
  const Point body{ColumnAt(0) - 6, kUpperRow + kBodyInset};
  const double width = (perSide - 1) * kPitch + 12, height = kLowerRow - kUpperRow - 2 * kBodyInset;
  for (const Pin& pin : PinsOf(package)) {
    const bool lower = pin.side == Side::Bottom;
    const double x = ColumnAt(pin.place), row = lower ? kLowerRow : kUpperRow;
    canvas.RoundRect({x - 3, row - 9}, 6, 18, 2, kContact);
    canvas.Line({x, row}, {x, lower ? body.y + height : body.y}, 4, kLight);
    // A short side has room for two numbers when they stand further apart than their pins.
    const double shift = !pin.atEnd || perSide > 3 ? 0 : pin.place == 0 ? -3 : 3;
    if (pin.atEnd)
      DrawNumber(canvas, pin.number,
                 {x + shift, lower ? kSocketAt.y + kSocketHeight + 7 : kSocketAt.y - 7 - kNumberHeight}, Align::Center);
  }
  canvas.RoundRect(body, width, height, 4, kChipEdge);
  canvas.RoundRect({body.x + 2, body.y + 2}, width - 4, height - 4, 3, kChip);
  const double middle = body.y + height / 2;
  canvas.Circle({body.x + 1, middle}, 7, kSocket);  // the notch
  canvas.Circle({ColumnAt(0) + 3, body.y + height - 10}, 4.5, kMark);
  const double textWidth = TextWidth(name, kTextHeight);
  if (textWidth + 40 < width) {
    DrawText(canvas, name, {body.x + width / 2 + 5, middle - kTextHeight / 2}, Align::Center, {kTextHeight, kLight});
  } else {
    DrawText(canvas, name, {body.x + width + 16, middle - kTextHeight / 2}, Align::Left, {kTextHeight, kLight});
  }
}

void DrawFourSides(Canvas& canvas, const Package& package, std::string_view name) {
  constexpr double kBoardWidth = 244, kBoardHeight = 218, kBody = 132, kLeg = 12;
  constexpr Point kBoardAt{kSocketAt.x + (kSocketWidth - kBoardWidth) / 2, 47};
  constexpr Point kMiddle{kBoardAt.x + kBoardWidth / 2, kBoardAt.y + kBoardHeight / 2};
  constexpr Point kBodyAt{kMiddle.x - kBody / 2, kMiddle.y - kBody / 2};
  const int perSide = package.Pins() / 4;
  const double pitch = (kBody - 16) / (perSide - 1), thick = std::min(5.0, pitch / 2);
  canvas.RoundRect(kBoardAt, kBoardWidth, kBoardHeight, 8, kBoardEdge);
  canvas.RoundRect({kBoardAt.x + 2, kBoardAt.y + 2}, kBoardWidth - 4, kBoardHeight - 4, 6, kBoard);
  for (const Pin& pin : PinsOf(package)) {
    const bool upright = pin.side == Side::Bottom || pin.side == Side::Top;
    const bool far = pin.side == Side::Bottom || pin.side == Side::Right;
    const double along = (upright ? kBodyAt.x : kBodyAt.y) + 8 + pin.place * pitch;
    const double edge = (upright ? kBodyAt.y : kBodyAt.x) + (far ? kBody : 0);
    const double tip = edge + (far ? kLeg : -kLeg);
    const auto place = [&](double across) { return upright ? Point{along, across} : Point{across, along}; };
    canvas.Line(place(edge), place(tip), thick, kLight);
    if (!pin.atEnd) continue;
    const Color ink = pin.number == 1 ? kContact : kLight;
    const double beside = tip + (far ? 6 : -6);
    if (upright) {
      DrawText(canvas, std::to_string(pin.number), {along, far ? beside : beside - kNumberHeight}, Align::Center,
               {kNumberHeight, ink});
    } else {
      DrawText(canvas, std::to_string(pin.number), {beside, along - kNumberHeight / 2},
               far ? Align::Left : Align::Right, {kNumberHeight, ink});
    }
  }
  canvas.RoundRect(kBodyAt, kBody, kBody, 6, kChipEdge);
  canvas.RoundRect({kBodyAt.x + 2, kBodyAt.y + 2}, kBody - 4, kBody - 4, 4, kChip);
  canvas.Circle({kBodyAt.x + 17, kBodyAt.y + 17}, 7, kMark);
  DrawText(canvas, name, {kMiddle.x, kMiddle.y - 22}, Align::Center, {kTextHeight + 2, kLight});
  DrawText(canvas, package.name, {kMiddle.x, kMiddle.y + 8}, Align::Center, {kTextHeight - 1, kMetal});
}

}  // namespace

Canvas DrawSocketFigure(std::string_view label) {
  const Package package = PackageOf(label);
  Canvas canvas = Begin(label, PackageText(package),
                        package.fourSided ? "ADAPTER BOARD, PIN 1 TOP LEFT" : "PIN 1 AT THE LEVER, LOWER ROW");
  DrawSocket(canvas);
  if (package.fourSided) {
    DrawFourSides(canvas, package, NameOf(label));
  } else {
    DrawTwoRows(canvas, package, NameOf(label));
  }
  return canvas;
}

}  // namespace pyxis::folder
