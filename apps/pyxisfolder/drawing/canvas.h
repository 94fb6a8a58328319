// A picture that shapes with soft edges are drawn into. Positions and sizes are in drawing units, x to the right and y
// down; the scale of the canvas tells how many pixels a unit is, so one drawing serves several sizes.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace pyxis::folder {

struct Color {
  std::uint8_t r, g, b;
  std::uint8_t a = 255;  // 0: see-through
  bool operator==(const Color&) const = default;
};

inline constexpr Color kClear{0, 0, 0, 0};

struct Point {
  double x, y;
};

class Canvas {
 public:
  Canvas(int width, int height, double scale = 1, Color background = kClear);

  int Width() const { return width_; }
  int Height() const { return height_; }
  // `x` and `y` in pixels, within the picture.
  Color At(int x, int y) const { return pixels_[Index(x, y)]; }

  void Rect(Point topLeft, double width, double height, Color color) { RoundRect(topLeft, width, height, 0, color); }
  void RoundRect(Point topLeft, double width, double height, double radius, Color color);
  void Circle(Point center, double radius, Color color);
  // With round ends.
  void Line(Point from, Point to, double width, Color color);
  // Lines through all points; where they overlap the colour counts once.
  void Polyline(std::span<const Point> points, double width, Color color);
  void Polygon(std::span<const Point> corners, Color color);

 private:
  struct Area {
    int left, top, right, bottom;  // pixels, all of them inside
  };
  Area AreaOf(Point low, Point high) const;
  // Calls `use` with every pixel of the area that lies within distance 0, and how much of it does. `distance` is
  // negative inside.
  template <typename Distance, typename Use>
  void Cover(const Area& area, Distance distance, Use use);
  template <typename Distance>
  void Fill(Point low, Point high, Color color, Distance distance);
  void Blend(int x, int y, Color color, double coverage);
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }

  int width_, height_;
  double scale_;
  std::vector<Color> pixels_;  // colours aren't multiplied by their alpha
};

}  // namespace pyxis::folder
