#include <algorithm>
#include <cmath>
#include <numbers>

#include "pyxisfolder/drawing/cursors.h"
#include "pyxisfolder/drawing/outlined.h"

namespace pyxis::folder {

namespace {

constexpr int kSize = 32;
constexpr int kFrames = 8;  // two steps
constexpr int kTicks = 6;

constexpr Color kSkin{70, 160, 76};
constexpr Color kFarSkin{44, 112, 54};
constexpr Color kBelly{190, 222, 140};
constexpr Color kSpike{214, 120, 40};
constexpr Color kEye{24, 28, 32};

// A leg from the hip over the knee to the foot; `phase` in radians, forward at 0, lifted while it comes forward.
void DrawLeg(Outlined& pen, Point hip, double phase, double ground, Color color) {
  const double ahead = 3.6 * std::cos(phase), lift = 2.6 * std::max(0.0, -std::sin(phase));
  const Point foot{hip.x + ahead, ground - lift};
  const Point knee{(hip.x + foot.x) / 2 + 1.6, (hip.y + foot.y) / 2};
  pen.Line(hip, knee, 4, color);
  pen.Line(knee, foot, 3, color);
  pen.Line(foot, {foot.x + 2.2, foot.y}, 2.4, color);
}

Canvas DrawStep(int frame) {
  const double phase = 2 * std::numbers::pi * frame / kFrames;
  const double bob = 0.6 * std::cos(2 * phase), sway = 1.4 * std::sin(phase);
  constexpr double kGround = 29;
  const auto at = [&](double x, double y) { return Point{x, y + bob}; };
  Canvas canvas(kSize, kSize);
  DrawWithRim(canvas, [&](Outlined& pen) {
    DrawLeg(pen, at(13.5, 21), phase + std::numbers::pi, kGround, kFarSkin);
    pen.Polygon({at(8.5, 13.5), at(7.5, 9.5), at(11.5, 11.8)}, kSpike);
    pen.Polygon({at(12, 12), at(12.5, 7.6), at(15.6, 10.6)}, kSpike);
    pen.Polygon({at(16, 10.5), at(16.2, 5.4), at(19.4, 8)}, kSpike);
    pen.Polygon({at(11, 14), at(2, 14 + sway), at(1.4, 15 + sway), at(10, 22)}, kSkin);  // tail
    pen.Circle(at(13, 17.5), 6, kSkin);
    pen.Polygon({at(12, 12), at(19, 7), at(23, 11), at(18, 21)}, kSkin);  // neck
    pen.Circle(at(22, 7.6), 4.2, kSkin);
    pen.Line(at(23, 8.6), at(28, 8.9), 4.6, kSkin);  // snout
    pen.Circle(at(15, 19), 2.8, kBelly);
    pen.Line(at(18.2, 15.4), at(21.6, 16.6), 2, kFarSkin);  // arm
    DrawLeg(pen, at(12.5, 21), phase, kGround, kSkin);
    pen.Circle(at(22.6, 6.4), 1.2, kEye);
    pen.Line(at(25, 10.1), at(29, 9.9), 0.8, kEye);  // mouth
  });
  return canvas;
}

}  // namespace

Animation DrawDinosaur() {
  Animation animation{{}, {}, kTicks};
  for (int frame = 0; frame < kFrames; ++frame) animation.frames.push_back({DrawStep(frame), kSize / 2, kSize / 2});
  return animation;
}

}  // namespace pyxis::folder
