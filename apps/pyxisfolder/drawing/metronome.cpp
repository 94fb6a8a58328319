#include <cmath>
#include <numbers>

#include "pyxisfolder/drawing/cursors.h"
#include "pyxisfolder/drawing/outlined.h"

namespace pyxis::folder {

namespace {

constexpr int kSize = 32;
constexpr int kPoses = 9;       // from far left to far right
constexpr int kTicks = 4;       // 16 steps there and back: 64/60 s
constexpr double kSwing = 0.5;  // radians to either side

constexpr Color kWood{150, 92, 44};
constexpr Color kFace{232, 204, 150};
constexpr Color kDark{66, 40, 20};
constexpr Color kRod{40, 44, 52};
constexpr Color kWeight{200, 48, 40};

Canvas DrawPose(int pose) {
  // The pendulum stands still for a moment at either end.
  const double angle = -kSwing * std::cos(pose * std::numbers::pi / (kPoses - 1));
  constexpr Point kPivot{16, 25};
  const auto along = [&](double length) {
    return Point{kPivot.x + length * std::sin(angle), kPivot.y - length * std::cos(angle)};
  };
  Canvas canvas(kSize, kSize);
  DrawWithRim(canvas, [&](Outlined& pen) {
    pen.Polygon({{12, 4}, {20, 4}, {26, 29}, {6, 29}}, kDark);
    pen.Polygon({{12.9, 5}, {19.1, 5}, {24.8, 28}, {7.2, 28}}, kWood);
    pen.Polygon({{14, 7}, {18, 7}, {20.6, 22}, {11.4, 22}}, kFace);
    pen.Line(kPivot, along(22), 1.6, kRod);
    pen.Line(along(12.5), along(15.5), 4.4, kWeight);
    pen.Circle(kPivot, 2, kRod);
    pen.Line({7, 29.4}, {25, 29.4}, 2, kDark);
  });
  return canvas;
}

}  // namespace

Animation DrawMetronome() {
  Animation animation{{}, {}, kTicks};
  for (int pose = 0; pose < kPoses; ++pose) animation.frames.push_back({DrawPose(pose), kSize / 2, kSize / 2});
  for (int pose = 0; pose < kPoses; ++pose) animation.sequence.push_back(static_cast<std::uint8_t>(pose));
  for (int pose = kPoses - 2; pose > 0; --pose) animation.sequence.push_back(static_cast<std::uint8_t>(pose));
  return animation;
}

}  // namespace pyxis::folder
