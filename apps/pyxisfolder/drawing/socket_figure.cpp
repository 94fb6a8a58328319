// The IC in the writer's socket: two rows of pins sit in the socket itself, four sides on an adapter board.
#include <algorithm>
#include <string>

#include "pyxisfolder/drawing/figure_parts.h"
#include "pyxisfolder/drawing/pictures.h"

namespace pyxis::folder {

namespace {

using namespace figure;

constexpr QColor kSocketColor{64, 104, 150};
constexpr QColor kSocketEdge{38, 68, 104};
constexpr QColor kSlot{30, 50, 76};
constexpr QColor kContact{226, 184, 84};

// The socket lies on its side, its lever on the left: 24 columns of two contacts.
constexpr int kColumns = 24;
constexpr double kPitch = 14;
constexpr QRectF kSocket(94, 82, 352, 150);
constexpr double kRowInset = 18;
constexpr double kUpperRow = kSocket.top() + kRowInset, kLowerRow = kSocket.bottom() - kRowInset;

double ColumnAt(int place) { return kSocket.x() + 15 + place * kPitch; }

void DrawContact(QPainter& painter, double x, double row, const QColor& color) {
  FillBox(painter, {x - 3, row - 9, 6, 18}, 2, color);
}

void DrawSocket(QPainter& painter) {
  const QPointF hinge(kSocket.x() + 4, kSocket.y() + 22), knob(30, hinge.y());
  DrawBar(painter, hinge, knob, 9, kFaintInk);
  DrawBar(painter, hinge, knob, 6, kMetal);
  EdgedBox(painter, QRectF(knob.x() - 12, knob.y() - 12, 24, 24), 12, kSocketEdge, kSocketColor);
  EdgedBox(painter, kSocket, 8, kSocketEdge, kSocketColor);
  for (int place = 0; place < kColumns; ++place)
    for (const double row : {kUpperRow, kLowerRow}) DrawContact(painter, ColumnAt(place), row, kSlot);
}

void DrawTwoRows(QPainter& painter, const Package& package, std::string_view name) {
  const int perSide = package.Pins() / 2;
  constexpr double kBodyInset = 16, kNumberGap = 13;
  const QRectF body(QPointF(ColumnAt(0) - 6, kUpperRow + kBodyInset),
                    QPointF(ColumnAt(perSide - 1) + 6, kLowerRow - kBodyInset));
  for (const Pin& pin : PinsOf(package)) {
    const bool lower = pin.side == Side::Bottom;
    const double x = ColumnAt(pin.place), row = lower ? kLowerRow : kUpperRow;
    DrawContact(painter, x, row, kContact);
    DrawBar(painter, {x, row}, {x, body.center().y()}, 4, kLight);
    if (!pin.atEnd) continue;
    // A short side has room for two numbers when they stand further apart than their pins.
    const double shift = perSide > 3 ? 0 : pin.place == 0 ? -3 : 3;
    Letter(painter, std::to_string(pin.number),
           {x + shift, lower ? kSocket.bottom() + kNumberGap : kSocket.top() - kNumberGap}, Qt::AlignHCenter,
           {kNumberSize, pin.number == 1 ? kMark : kInk, pin.number == 1});
  }
  EdgedBox(painter, body, 4, kChipEdge, kChip);
  painter.setClipRect(body);
  FillCircle(painter, {body.x(), body.center().y()}, 7, kSocketColor);  // the notch
  painter.setClipping(false);
  FillCircle(painter, {ColumnAt(0) + 3, body.bottom() - 10}, 4.5, kMark);
  if (WidthOf(name, kTextSize) + 30 < body.width()) {
    Letter(painter, name, {body.center().x() + 4, body.center().y()}, Qt::AlignHCenter, {kTextSize, kLight});
  } else {
    Letter(painter, name, {body.right() + 16, body.center().y()}, Qt::AlignLeft, {kTextSize, kLight});
  }
}

void DrawFourSides(QPainter& painter, const Package& package, std::string_view name) {
  constexpr double kBodySide = 132, kLeg = 12, kNumberGap = 6;
  constexpr QRectF kAdapter(kSocket.x() + 54, 47, 244, 218);
  QRectF body(0, 0, kBodySide, kBodySide);
  body.moveCenter(kAdapter.center());
  const double pitch = (kBodySide - 16) / (package.Pins() / 4 - 1), thick = std::min(5.0, pitch / 2);
  EdgedBox(painter, kAdapter, 8, kBoardEdge, kBoard);
  for (const Pin& pin : PinsOf(package)) {
    const bool upright = pin.side == Side::Bottom || pin.side == Side::Top;
    const double away = pin.side == Side::Bottom || pin.side == Side::Right ? 1 : -1;
    const double along = 8 + pin.place * pitch - kBodySide / 2;  // from the middle
    const auto at = [&](double beyond) {
      const double across = away * (kBodySide / 2 + beyond);
      return body.center() + (upright ? QPointF(along, across) : QPointF(across, along));
    };
    DrawBar(painter, at(0), at(kLeg), thick, kLight);
    if (!pin.atEnd) continue;
    const Lettering lettering{kNumberSize, pin.number == 1 ? kContact : kLight, pin.number == 1};
    if (upright) {
      Letter(painter, std::to_string(pin.number), at(kLeg + kNumberGap + 8), Qt::AlignHCenter, lettering);
    } else {
      Letter(painter, std::to_string(pin.number), at(kLeg + kNumberGap), away < 0 ? Qt::AlignRight : Qt::AlignLeft,
             lettering);
    }
  }
  EdgedBox(painter, body, 6, kChipEdge, kChip);
  FillCircle(painter, body.topLeft() + QPointF(17, 17), 7, kMark);
  Letter(painter, name, body.center() - QPointF(0, 10), Qt::AlignHCenter, {kTextSize, kLight});
  Letter(painter, package.name, body.center() + QPointF(0, 16), Qt::AlignHCenter, {kSmallSize, kMetal});
}

}  // namespace

QImage DrawSocketFigure(std::string_view label) {
  const Package package = PackageOf(label);
  QImage image = Paper(label, PackageText(package),
                       package.fourSided ? "Adapter board, pin 1 top left" : "Pin 1 at the lever, lower row");
  QPainter painter(&image);
  Prepare(painter);
  DrawSocket(painter);
  if (package.fourSided) {
    DrawFourSides(painter, package, NameOf(label));
  } else {
    DrawTwoRows(painter, package, NameOf(label));
  }
  return image;
}

}  // namespace pyxis::folder
