// What all package figures share: size, colours, title, shapes.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <string>
#include <string_view>

#include "pyxisfolder/drawing/package.h"

namespace pyxis::folder::figure {

inline constexpr int kWidth = 460, kHeight = 300;

inline constexpr QColor kPaper{255, 255, 255};
inline constexpr QColor kFrame{196, 202, 210};
inline constexpr QColor kInk{32, 40, 52};
inline constexpr QColor kFaintInk{104, 114, 128};
inline constexpr QColor kBoard{34, 112, 84};
inline constexpr QColor kBoardEdge{22, 82, 60};
inline constexpr QColor kChip{52, 56, 64};
inline constexpr QColor kChipEdge{28, 31, 37};
inline constexpr QColor kLight{232, 236, 240};
inline constexpr QColor kMetal{176, 184, 194};
inline constexpr QColor kMark{232, 72, 48};  // pin 1

// The lettering, in pixels from the highest to the lowest stroke.
inline constexpr int kTitleSize = 30, kTextSize = 21, kNumberSize = 19, kSmallSize = 17;

// White paper with a frame, the IC's name at the top left, `right` at the top right, `bottom` along the lower edge.
QImage Paper(std::string_view label, std::string_view right, std::string_view bottom);

// Soft edges.
void Prepare(QPainter& painter);

void FillBox(QPainter& painter, const QRectF& box, double radius, const QColor& color);
// With an edge of two pixels, within the box.
void EdgedBox(QPainter& painter, const QRectF& box, double radius, const QColor& edge, const QColor& color);
void FillCircle(QPainter& painter, QPointF center, double radius, const QColor& color);
// With round ends.
void DrawBar(QPainter& painter, QPointF from, QPointF to, double width, const QColor& color);

struct Lettering {
  int size;
  QColor color;
  bool bold = false;
};
// `at` is the left end, the middle or the right end, halfway up.
void Letter(QPainter& painter, std::string_view text, QPointF at, Qt::AlignmentFlag align, const Lettering& lettering);
double WidthOf(std::string_view text, int size);

// The part of a label before its pin counts.
std::string_view NameOf(std::string_view label);

// "SOP-16", or "28 / 32 / 44 pins" of a figure for several packages.
std::string PackageText(const Package& package);

}  // namespace pyxis::folder::figure
