#include "pyxisfolder/drawing/canvas.h"

#include <algorithm>
#include <cmath>

namespace pyxis::folder {

namespace {

// std::hypot guards against overflow, which takes most of the time of a drawing.
double Length(double x, double y) { return std::sqrt(x * x + y * y); }

double DistanceToSegment(Point p, Point a, Point b) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double length = dx * dx + dy * dy;
  const double along = length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0;
  return Length(p.x - a.x - along * dx, p.y - a.y - along * dy);
}

bool IsInside(Point p, std::span<const Point> corners) {
  bool inside = false;
  for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
    const Point a = corners[i], b = corners[j];
    if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

std::uint8_t ToByte(double value) { return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0))); }

struct Box {
  Point low, high;
};

Box BoxOf(std::span<const Point> points, double margin) {
  Box box{points[0], points[0]};
  for (const Point p : points) {
    box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y)};
    box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y)};
  }
  return {{box.low.x - margin, box.low.y - margin}, {box.high.x + margin, box.high.y + margin}};
}

}  // namespace

Canvas::Canvas(int width, int height, double scale, Color background)
    : width_(width),
      height_(height),
      scale_(scale),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), background) {}

Canvas::Area Canvas::AreaOf(Point low, Point high) const {
  return {std::max(0, static_cast<int>(std::floor(low.x * scale_)) - 1),
          std::max(0, static_cast<int>(std::floor(low.y * scale_)) - 1),
          std::min(width_ - 1, static_cast<int>(std::ceil(high.x * scale_)) + 1),
          std::min(height_ - 1, static_cast<int>(std::ceil(high.y * scale_)) + 1)};
}

template <typename Distance, typename Use>
void Canvas::Cover(const Area& area, Distance distance, Use use) {
  for (int y = area.top; y <= area.bottom; ++y)
    for (int x = area.left; x <= area.right; ++x) {
      const double coverage = 0.5 - distance(Point{(x + 0.5) / scale_, (y + 0.5) / scale_}) * scale_;
      if (coverage > 0) use(x, y, std::min(coverage, 1.0));
    }
}

template <typename Distance>
void Canvas::Fill(Point low, Point high, Color color, Distance distance) {
  Cover(AreaOf(low, high), distance, [&](int x, int y, double coverage) { Blend(x, y, color, coverage); });
}

void Canvas::Blend(int x, int y, Color color, double coverage) {
  Color& pixel = pixels_[Index(x, y)];
  const double over = coverage * color.a / 255;
  if (over >= 1) {
    pixel = color;
    return;
  }
  const double under = pixel.a / 255.0 * (1 - over);
  const double sum = over + under;
  const auto mix = [&](std::uint8_t upper, std::uint8_t lower) { return ToByte((upper * over + lower * under) / sum); };
  pixel = {mix(color.r, pixel.r), mix(color.g, pixel.g), mix(color.b, pixel.b), ToByte(sum * 255)};
}

void Canvas::RoundRect(Point topLeft, double width, double height, double radius, Color color) {
  const Point middle{topLeft.x + width / 2, topLeft.y + height / 2};
  Fill(topLeft, {topLeft.x + width, topLeft.y + height}, color, [=](Point p) {
    const double x = std::abs(p.x - middle.x) - width / 2 + radius;
    const double y = std::abs(p.y - middle.y) - height / 2 + radius;
    return (x > 0 && y > 0 ? Length(x, y) : std::max(x, y)) - radius;
  });
}

void Canvas::Circle(Point center, double radius, Color color) {
  Fill({center.x - radius, center.y - radius}, {center.x + radius, center.y + radius}, color,
       [=](Point p) { return Length(p.x - center.x, p.y - center.y) - radius; });
}

void Canvas::Line(Point from, Point to, double width, Color color) {
  const Point points[] = {from, to};
  Polyline(points, width, color);
}

void Canvas::Polyline(std::span<const Point> points, double width, Color color) {
  const Box box = BoxOf(points, width / 2);
  const Area all = AreaOf(box.low, box.high);
  if (all.right < all.left || all.bottom < all.top) return;
  // Each line covers its own surroundings only; a pixel keeps the most that one of them covers.
  const auto columns = static_cast<std::size_t>(all.right - all.left + 1);
  std::vector<double> most(columns * static_cast<std::size_t>(all.bottom - all.top + 1));
  const auto at = [&](int x, int y) -> double& {
    return most[static_cast<std::size_t>(y - all.top) * columns + static_cast<std::size_t>(x - all.left)];
  };
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Box own = BoxOf(points.subspan(i - 1, 2), width / 2);
    Cover(
        AreaOf(own.low, own.high), [&](Point p) { return DistanceToSegment(p, points[i - 1], points[i]) - width / 2; },
        [&](int x, int y, double coverage) { at(x, y) = std::max(at(x, y), coverage); });
  }
  for (int y = all.top; y <= all.bottom; ++y)
    for (int x = all.left; x <= all.right; ++x)
      if (at(x, y) > 0) Blend(x, y, color, at(x, y));
}

void Canvas::Polygon(std::span<const Point> corners, Color color) {
  const Box box = BoxOf(corners, 0);
  Fill(box.low, box.high, color, [=](Point p) {
    double nearest = DistanceToSegment(p, corners.back(), corners.front());
    for (std::size_t i = 1; i < corners.size(); ++i)
      nearest = std::min(nearest, DistanceToSegment(p, corners[i - 1], corners[i]));
    return IsInside(p, corners) ? -nearest : nearest;
  });
}

}  // namespace pyxis::folder
