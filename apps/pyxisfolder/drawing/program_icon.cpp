#include <QPainter>

#include "pyxisfolder/drawing/pictures.h"

namespace pyxis::folder {

QImage DrawProgramIcon(int size) {
  constexpr double kUnits = 256;
  constexpr QColor kTile{36, 92, 168};
  constexpr QColor kTileEdge{22, 62, 120};
  constexpr QColor kChip{30, 34, 42};
  constexpr QColor kPins{226, 232, 240};
  constexpr QColor kArrow{255, 196, 64};
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / kUnits, size / kUnits);
  painter.setPen(QPen(kTileEdge, 8));
  painter.setBrush(kTile);
  painter.drawRoundedRect(QRectF(12, 12, 232, 232), 40, 40);
  const double firstPin = size < 32 ? 64 : 72;  // on whole pixels also in the smallest icon
  for (int i = 0; i < 4; ++i) painter.fillRect(QRectF(36, firstPin + 32 * i, 184, 16), kPins);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kChip);
  painter.drawRoundedRect(QRectF(64, 48, 128, 160), 12, 12);
  painter.setBrush(kArrow);
  painter.drawRect(QRectF(112, 68, 32, 64));
  painter.drawPolygon(QPolygonF{{80, 124}, {176, 124}, {128, 180}});
  return image;
}

}  // namespace pyxis::folder
