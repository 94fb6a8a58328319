#include "pyxisfolder/drawing/figure_parts.h"

#include <QFontMetricsF>

namespace pyxis::folder::figure {

namespace {

QString Text(std::string_view text) { return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())); }

QFont FontOf(int size, bool bold = false) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(size);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);  // the figure is stretched when it is shown
  return font;
}

}  // namespace

QImage Paper(std::string_view label, std::string_view right, std::string_view bottom) {
  constexpr double kMargin = 14, kTitleLine = 25, kBottomLine = kHeight - 19;
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  image.fill(kFrame);
  QPainter painter(&image);
  Prepare(painter);
  painter.fillRect(2, 2, kWidth - 4, kHeight - 4, kPaper);
  Letter(painter, NameOf(label), {kMargin, kTitleLine}, Qt::AlignLeft, {kTitleSize, kInk, true});
  Letter(painter, right, {kWidth - kMargin, kTitleLine}, Qt::AlignRight, {kTextSize, kFaintInk});
  Letter(painter, bottom, {kWidth / 2.0, kBottomLine}, Qt::AlignHCenter, {kSmallSize, kFaintInk});
  return image;
}

void Prepare(QPainter& painter) { painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing); }

void FillBox(QPainter& painter, const QRectF& box, double radius, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(box, radius, radius);
}

void EdgedBox(QPainter& painter, const QRectF& box, double radius, const QColor& edge, const QColor& color) {
  painter.setPen(QPen(edge, 2));
  painter.setBrush(color);
  painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
}

void FillCircle(QPainter& painter, QPointF center, double radius, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(center, radius, radius);
}

void DrawBar(QPainter& painter, QPointF from, QPointF to, double width, const QColor& color) {
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(from, to);
}

void Letter(QPainter& painter, std::string_view text, QPointF at, Qt::AlignmentFlag align, const Lettering& lettering) {
  QRectF box(0, 0, kWidth, kHeight);
  box.moveCenter(at);
  if (align == Qt::AlignLeft) box.moveLeft(at.x());
  if (align == Qt::AlignRight) box.moveRight(at.x());
  painter.setPen(lettering.color);
  painter.setFont(FontOf(lettering.size, lettering.bold));
  painter.drawText(box, align | Qt::AlignVCenter, Text(text));
}

double WidthOf(std::string_view text, int size) { return QFontMetricsF(FontOf(size)).horizontalAdvance(Text(text)); }

std::string_view NameOf(std::string_view label) { return label.substr(0, label.find('_')); }

std::string PackageText(const Package& package) {
  if (package.pinCounts.size() == 1) return package.name;
  std::string text;
  for (const int count : package.pinCounts) text += (text.empty() ? "" : " / ") + std::to_string(count);
  return text + " pins";
}

}  // namespace pyxis::folder::figure
