// The IC on its own board, wired to the writer's ISP header. The lines go by name: which pins of a package they are on
// stands in the IC's data sheet.
#include "pyxisfolder/drawing/figure_parts.h"
#include "pyxisfolder/drawing/pictures.h"

namespace pyxis::folder {

namespace {

using namespace figure;

struct Wire {
  std::string_view name;
  QColor color;
};
constexpr Wire kWires[] = {
    {"VPP", {222, 112, 28}}, {"VDD", {206, 44, 44}}, {"VSS", {40, 46, 56}},
    {"PGC", {38, 98, 200}},  {"PGD", {22, 140, 92}},
};

constexpr double kFirstWire = 110, kWirePitch = 31;
constexpr QRectF kWriter(22, 52, 134, 206), kTarget(256, 52, 184, 206);
constexpr QRectF kChipBody(kTarget.x() + 40, kTarget.y() + 12, 124, kTarget.height() - 24);
constexpr double kHeaderX = kWriter.right() - 22;
constexpr QColor kWriterCase{72, 82, 98};
constexpr QColor kWriterEdge{44, 52, 64};

void DrawWriter(QPainter& painter) {
  EdgedBox(painter, kWriter, 8, kWriterEdge, kWriterCase);
  Letter(painter, "Writer", {kWriter.x() + 14, kWriter.y() + 24}, Qt::AlignLeft, {kTextSize, kLight});
  // The header's shroud.
  FillBox(painter, {kHeaderX - 13, kFirstWire - 15, 26, 4 * kWirePitch + 30}, 3, kChipEdge);
}

void DrawTarget(QPainter& painter, std::string_view name) {
  EdgedBox(painter, kTarget, 8, kBoardEdge, kBoard);
  EdgedBox(painter, kChipBody, 5, kChipEdge, kChip);
  Letter(painter, name, {kChipBody.center().x(), kChipBody.y() + 18}, Qt::AlignHCenter, {kTextSize, kMetal});
}

void DrawWire(QPainter& painter, const Wire& wire, double y) {
  const QPointF pad(kHeaderX, y), leg(kChipBody.x(), y), tip(leg.x() - 16, y);
  DrawBar(painter, tip, leg, 9, kLight);
  DrawBar(painter, pad, tip, 7, kPaper);
  DrawBar(painter, pad, tip, 4.5, wire.color);
  for (const QPointF end : {pad, tip}) FillCircle(painter, end, 4.5, wire.color);
  Letter(painter, wire.name, {pad.x() - 19, y}, Qt::AlignRight, {kTextSize, kLight});
  Letter(painter, wire.name, {leg.x() + 12, y}, Qt::AlignLeft, {kTextSize, kLight});
}

}  // namespace

QImage DrawIspFigure(std::string_view label, Wiring wiring) {
  QImage image = Paper(label, wiring == Wiring::ExhvIsp ? "EXHV ISP" : "ISP", "Pins by name: see the data sheet");
  QPainter painter(&image);
  Prepare(painter);
  DrawWriter(painter);
  DrawTarget(painter, NameOf(label));
  double y = kFirstWire;
  for (const Wire& wire : kWires) {
    const bool used = wiring == Wiring::ExhvIsp || wire.name != "VPP";
    FillBox(painter, {kHeaderX - 5, y - 5, 10, 10}, 0, used ? kMetal : kFaintInk);
    if (used) DrawWire(painter, wire, y);
    y += kWirePitch;
  }
  return image;
}

}  // namespace pyxis::folder
