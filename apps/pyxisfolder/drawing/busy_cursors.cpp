// The two busy cursors.
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include "pyxisfolder/drawing/pictures.h"

namespace pyxis::folder {

namespace {

constexpr int kSize = 32;

void Line(QPainter& painter, QPointF from, QPointF to, double width, const QColor& color) {
  painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(from, to);
}

void Shape(QPainter& painter, const QPolygonF& corners, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPolygon(corners);
}

void Circle(QPainter& painter, QPointF center, double radius, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(center, radius, radius);
}

// The shapes with a white rim, so that the cursor shows on dark and light.
QImage WithRim(const std::function<void(QPainter&)>& draw) {
  constexpr double kRim = 1.2;
  constexpr int kPlaces = 12;  // where the shapes in white stand around the shapes themselves
  QImage shapes(kSize, kSize, QImage::Format_ARGB32_Premultiplied);
  shapes.fill(Qt::transparent);
  {
    QPainter painter(&shapes);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
  }
  QImage white = shapes;
  {
    QPainter painter(&white);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(white.rect(), Qt::white);
  }
  QImage image(kSize, kSize, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (int i = 0; i < kPlaces; ++i) {
    const double angle = 2 * std::numbers::pi * i / kPlaces;
    painter.drawImage(QPointF(kRim * std::cos(angle), kRim * std::sin(angle)), white);
  }
  painter.drawImage(0, 0, shapes);
  painter.end();
  return image.convertToFormat(QImage::Format_ARGB32);
}

constexpr int kPoses = 9;  // of the pendulum, from far left to far right

QImage DrawPose(int pose) {
  constexpr QColor kWood{150, 92, 44}, kFace{232, 204, 150}, kDark{66, 40, 20}, kRod{40, 44, 52}, kWeight{200, 48, 40};
  constexpr double kSwing = 0.5;  // radians to either side
  // The pendulum stands still for a moment at either end.
  const double angle = -kSwing * std::cos(pose * std::numbers::pi / (kPoses - 1));
  constexpr QPointF kPivot(16, 25);
  const auto along = [&](double length) {
    return kPivot + QPointF(length * std::sin(angle), -length * std::cos(angle));
  };
  return WithRim([&](QPainter& painter) {
    Shape(painter, {{12, 4}, {20, 4}, {26, 29}, {6, 29}}, kDark);
    Shape(painter, {{12.9, 5}, {19.1, 5}, {24.8, 28}, {7.2, 28}}, kWood);
    Shape(painter, {{14, 7}, {18, 7}, {20.6, 22}, {11.4, 22}}, kFace);
    Line(painter, kPivot, along(22), 1.6, kRod);
    Line(painter, along(12.5), along(15.5), 4.4, kWeight);
    Circle(painter, kPivot, 2, kRod);
    Line(painter, {7, 29.4}, {25, 29.4}, 2, kDark);
  });
}

// A leg from the hip over the knee to the foot; `phase` in radians, forward at 0, lifted while it comes forward.
void DrawLeg(QPainter& painter, QPointF hip, double phase, const QColor& color) {
  constexpr double kGround = 29;
  const double ahead = 3.6 * std::cos(phase), lift = 2.6 * std::max(0.0, -std::sin(phase));
  const QPointF foot(hip.x() + ahead, kGround - lift);
  const QPointF knee((hip.x() + foot.x()) / 2 + 1.6, (hip.y() + foot.y()) / 2);
  Line(painter, hip, knee, 4, color);
  Line(painter, knee, foot, 3, color);
  Line(painter, foot, {foot.x() + 2.2, foot.y()}, 2.4, color);
}

constexpr int kStrides = 8;  // pictures of two steps

QImage DrawStride(int stride) {
  constexpr QColor kSkin{70, 160, 76}, kFarSkin{44, 112, 54}, kBelly{190, 222, 140}, kSpike{214, 120, 40},
      kEye{24, 28, 32};
  const double phase = 2 * std::numbers::pi * stride / kStrides;
  const double bob = 0.6 * std::cos(2 * phase), sway = 1.4 * std::sin(phase);
  const auto at = [&](double x, double y) { return QPointF(x, y + bob); };
  return WithRim([&](QPainter& painter) {
    DrawLeg(painter, at(13.5, 21), phase + std::numbers::pi, kFarSkin);
    Shape(painter, {at(8.5, 13.5), at(7.5, 9.5), at(11.5, 11.8)}, kSpike);
    Shape(painter, {at(12, 12), at(12.5, 7.6), at(15.6, 10.6)}, kSpike);
    Shape(painter, {at(16, 10.5), at(16.2, 5.4), at(19.4, 8)}, kSpike);
    Shape(painter, {at(11, 14), at(2, 14 + sway), at(1.4, 15 + sway), at(10, 22)}, kSkin);  // tail
    Circle(painter, at(13, 17.5), 6, kSkin);
    Shape(painter, {at(12, 12), at(19, 7), at(23, 11), at(18, 21)}, kSkin);  // neck
    Circle(painter, at(22, 7.6), 4.2, kSkin);
    Line(painter, at(23, 8.6), at(28, 8.9), 4.6, kSkin);  // snout
    Circle(painter, at(15, 19), 2.8, kBelly);
    Line(painter, at(18.2, 15.4), at(21.6, 16.6), 2, kFarSkin);  // arm
    DrawLeg(painter, at(12.5, 21), phase, kSkin);
    Circle(painter, at(22.6, 6.4), 1.2, kEye);
    Line(painter, at(25, 10.1), at(29, 9.9), 0.8, kEye);  // mouth
  });
}

}  // namespace

Animation DrawMetronome() {
  Animation animation{{}, {}, 4};  // 16 steps there and back: 64/60 s
  for (int pose = 0; pose < kPoses; ++pose) animation.frames.push_back(DrawPose(pose));
  for (int pose = 0; pose < kPoses; ++pose) animation.sequence.push_back(pose);
  for (int pose = kPoses - 2; pose > 0; --pose) animation.sequence.push_back(pose);
  return animation;
}

Animation DrawDinosaur() {
  Animation animation{{}, {}, 6};
  for (int stride = 0; stride < kStrides; ++stride) animation.frames.push_back(DrawStride(stride));
  return animation;
}

}  // namespace pyxis::folder
