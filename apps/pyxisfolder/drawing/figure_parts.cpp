#include "pyxisfolder/drawing/figure_parts.h"

#include "pyxisfolder/drawing/stroke_font.h"

namespace pyxis::folder::figure {

Canvas Begin(std::string_view label, std::string_view right, std::string_view bottom) {
  constexpr double kMargin = 16;
  Canvas canvas(kWidth, kHeight, 1, kFrame);
  canvas.Rect({2, 2}, kWidth - 4, kHeight - 4, kPaper);
  DrawText(canvas, NameOf(label), {kMargin, 14}, Align::Left, {kTitleHeight, kInk, 0.16});
  DrawText(canvas, right, {kWidth - kMargin, 17}, Align::Right, {kTextHeight, kFaintInk});
  DrawText(canvas, bottom, {kWidth / 2.0, kHeight - 27}, Align::Center, {kTextHeight - 2, kFaintInk});
  return canvas;
}

std::string_view NameOf(std::string_view label) { return label.substr(0, label.find('_')); }

std::string PackageText(const Package& package) {
  if (package.pinCounts.size() == 1) return package.name;
  std::string text;
  for (const int count : package.pinCounts) text += (text.empty() ? "" : " / ") + std::to_string(count);
  return text + " PINS";
}

}  // namespace pyxis::folder::figure
