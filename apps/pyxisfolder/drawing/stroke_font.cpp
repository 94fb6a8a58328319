#include "pyxisfolder/drawing/stroke_font.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <vector>

namespace pyxis::folder {

namespace {

// A glyph is strokes, separated by blanks. A stroke is points of two letters: the column, from a at the left edge, and
// the row, from a at the top to m at the base line. At a capital column the pen turns sharply, at a small one in a bow.
struct Glyph {
  char sign;
  const char* strokes;
};

constexpr Glyph kGlyphs[] = {
    {'0', "ea ba bm hm ha ea"},
    {'1', "Bd Ea Em"},
    {'2', "Ad aa ia if Am Im"},
    {'3', "Ad aa ia ig Dg,Dg ig im am Aj"},
    {'4', "Gm Ga Ai Ii"},
    {'5', "Ia Aa Af if im am Aj"},
    {'6', "Id ia aa am im if Af"},
    {'7', "Aa Ia Dm"},
    {'8', "ea ba bg hg ha ea,eg ag am im ig eg"},
    {'9', "Aj am im ia aa ah Ih"},
    {'A', "Am Ea Im,Bi Hi"},
    {'B', "Ag Aa ha hg Ag Am im ig Ag"},
    {'C', "Id ia aa am im Ij"},
    {'D', "Aa Am im ia Aa"},
    {'E', "Ia Aa Am Im,Ag Gg"},
    {'F', "Ia Aa Am,Ag Gg"},
    {'G', "Id ia aa am im Ig Eg"},
    {'H', "Aa Am,Ia Im,Ag Ig"},
    {'I', "Aa Am"},
    {'J', "Ga gm am Aj"},
    {'K', "Aa Am,Ia Ah,Df Im"},
    {'L', "Aa Am Hm"},
    {'M', "Am Aa Fh Ka Km"},
    {'N', "Am Aa Im Ia"},
    {'O', "ea aa am im ia ea"},
    {'P', "Am Aa ia ih Ah"},
    {'Q', "ea aa am im ia ea,Fj Im"},
    {'R', "Am Aa ia ig Ag,Eg Im"},
    {'S', "Id ia aa ag ig im am Aj"},
    {'T', "Aa Ia,Ea Em"},
    {'U', "Aa am im Ia"},
    {'V', "Aa Em Ia"},
    {'W', "Aa Dm Gd Jm Ma"},
    {'X', "Aa Im,Ia Am"},
    {'Y', "Aa Eg Ia,Eg Em"},
    {'Z', "Aa Ia Am Im"},
    {'-', "Ag Gg"},
    {'/', "Am Ga"},
    {'.', "Am Am"},
    {',', "Bl Ao"},
    {':', "Ad Ad,Ak Ak"},
    {'(', "Da aa am Dm"},
    {')', "Aa da dm Am"},
};

constexpr double kRows = 12;  // of a capital letter
constexpr double kGap = 3.6;  // between two letters
constexpr double kBlank = 5;  // width of a blank
constexpr double kBow = 4;    // how far from a corner a bow begins, at most
constexpr int kBowSteps = 6;

struct Corner {
  Point at;
  bool bow;
};

using Stroke = std::vector<Corner>;

std::vector<Stroke> StrokesOf(char sign) {
  std::vector<Stroke> strokes;
  const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(sign)));
  const Glyph* glyph =
      std::find_if(std::begin(kGlyphs), std::end(kGlyphs), [=](const Glyph& g) { return g.sign == upper; });
  if (glyph == std::end(kGlyphs)) return strokes;
  strokes.emplace_back();
  for (const char* p = glyph->strokes; *p != '\0';) {
    if (*p == ',') strokes.emplace_back();
    if (*p == ',' || *p == ' ') {
      ++p;
      continue;
    }
    const bool bow = std::islower(static_cast<unsigned char>(p[0])) != 0;
    strokes.back().push_back({{static_cast<double>(p[0] - (bow ? 'a' : 'A')), static_cast<double>(p[1] - 'a')}, bow});
    p += 2;
  }
  return strokes;
}

double WidthOf(char sign) {
  double width = -1;
  for (const Stroke& stroke : StrokesOf(sign))
    for (const Corner& corner : stroke) width = std::max(width, corner.at.x);
  return width < 0 ? kBlank : width;
}

Point Between(Point a, Point b, double along) { return {a.x + (b.x - a.x) * along, a.y + (b.y - a.y) * along}; }

// The pen's way through a stroke, bows as short straight pieces.
std::vector<Point> WayOf(const Stroke& stroke) {
  std::vector<Point> way{stroke.front().at};
  const auto room = [&](std::size_t i, std::size_t neighbour) {
    const double length = std::hypot(stroke[i].at.x - stroke[neighbour].at.x, stroke[i].at.y - stroke[neighbour].at.y);
    return std::pair(
        length, std::min(kBow, stroke[neighbour].bow && neighbour != 0 && neighbour + 1 != stroke.size() ? length / 2
                                                                                                         : length));
  };
  for (std::size_t i = 1; i + 1 < stroke.size(); ++i) {
    if (!stroke[i].bow) {
      way.push_back(stroke[i].at);
      continue;
    }
    const auto [before, roomBefore] = room(i, i - 1);
    const auto [after, roomAfter] = room(i, i + 1);
    const Point from = Between(stroke[i].at, stroke[i - 1].at, roomBefore / before);
    const Point to = Between(stroke[i].at, stroke[i + 1].at, roomAfter / after);
    for (int step = 0; step <= kBowSteps; ++step) {
      const double t = static_cast<double>(step) / kBowSteps;
      way.push_back(Between(Between(from, stroke[i].at, t), Between(stroke[i].at, to, t), t));
    }
  }
  way.push_back(stroke.back().at);
  return way;
}

}  // namespace

double TextWidth(std::string_view text, double height) {
  double width = text.empty() ? 0 : -kGap;
  for (const char sign : text) width += WidthOf(sign) + kGap;
  return width * height / kRows;
}

void DrawText(Canvas& canvas, std::string_view text, Point at, Align align, const Lettering& lettering) {
  const double unit = lettering.height / kRows;
  const double width = TextWidth(text, lettering.height);
  double x = at.x - (align == Align::Left ? 0 : align == Align::Center ? width / 2 : width);
  for (const char sign : text) {
    for (const Stroke& stroke : StrokesOf(sign)) {
      std::vector<Point> way = WayOf(stroke);
      for (Point& p : way) p = {x + p.x * unit, at.y + p.y * unit};
      canvas.Polyline(way, lettering.weight * lettering.height, lettering.color);
    }
    x += (WidthOf(sign) + kGap) * unit;
  }
}

}  // namespace pyxis::folder
