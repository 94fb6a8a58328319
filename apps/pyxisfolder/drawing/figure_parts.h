// What all package figures share: size, colours, title.
#pragma once

#include <string>
#include <string_view>

#include "pyxisfolder/drawing/canvas.h"
#include "pyxisfolder/drawing/package.h"

namespace pyxis::folder::figure {

inline constexpr int kWidth = 460, kHeight = 300;

inline constexpr Color kPaper{255, 255, 255};
inline constexpr Color kFrame{196, 202, 210};
inline constexpr Color kInk{32, 40, 52};
inline constexpr Color kFaintInk{104, 114, 128};
inline constexpr Color kBoard{34, 112, 84};
inline constexpr Color kBoardEdge{22, 82, 60};
inline constexpr Color kChip{52, 56, 64};
inline constexpr Color kChipEdge{28, 31, 37};
inline constexpr Color kLight{232, 236, 240};
inline constexpr Color kMetal{176, 184, 194};
inline constexpr Color kMark{232, 72, 48};  // pin 1

inline constexpr double kTitleHeight = 22, kTextHeight = 16, kNumberHeight = 15;

// White paper with a frame, the IC's name at the top left, `right` at the top right, `bottom` along the lower edge.
Canvas Begin(std::string_view label, std::string_view right, std::string_view bottom);

// The part of a label before its pin counts.
std::string_view NameOf(std::string_view label);

// "SOP-16", or "28 / 32 / 44 PINS" of a figure for several packages.
std::string PackageText(const Package& package);

}  // namespace pyxis::folder::figure
