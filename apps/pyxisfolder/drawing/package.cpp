#include "pyxisfolder/drawing/package.h"

#include <charconv>

#include "catalogue/chip_catalogue.h"

namespace pyxis::folder {

namespace {

// Kind of package by its pins: the first row that holds them.
struct PackageKind {
  int mostPins;
  std::string_view name;
  bool fourSided;
};
constexpr PackageKind kKinds[] = {
    {6, "SOT23", false}, {8, "SOP", false},   {10, "MSOP", false},
    {28, "SOP", false},  {40, "SSOP", false}, {100, "LQFP", true},
};

const PackageKind& KindOf(int pins) {
  for (const PackageKind& kind : kKinds)
    if (pins <= kind.mostPins) return kind;
  return kKinds[std::size(kKinds) - 1];
}

// The numbers behind the name, "_28_32_44".
std::vector<int> CountsIn(std::string_view label) {
  std::vector<int> counts;
  for (std::size_t at = label.find('_'); at != std::string_view::npos; at = label.find('_', at + 1)) {
    int count = 0;
    std::from_chars(label.data() + at + 1, label.data() + label.size(), count);
    if (count > 0) counts.push_back(count);
  }
  return counts;
}

std::vector<int> CountsOfName(std::string_view name) {
  const Ic& ic = *IcOfName(name);
  return ic.pins == kInLabel ? CountsIn(ic.km49[0].text) : std::vector{ic.pins};
}

}  // namespace

Package PackageOf(std::string_view label) {
  Package package;
  package.pinCounts = CountsIn(label);
  if (package.pinCounts.empty()) package.pinCounts = CountsOfName(label);
  const PackageKind& kind = KindOf(package.Pins());
  package.name = std::string(kind.name) + "-" + std::to_string(package.Pins());
  package.fourSided = kind.fourSided;
  return package;
}

std::vector<Pin> PinsOf(const Package& package) {
  constexpr Side kTwo[] = {Side::Bottom, Side::Top};
  constexpr Side kFour[] = {Side::Left, Side::Bottom, Side::Right, Side::Top};
  const std::span<const Side> sides = package.fourSided ? std::span<const Side>(kFour) : std::span<const Side>(kTwo);
  const int perSide = package.Pins() / static_cast<int>(sides.size());
  std::vector<Pin> pins;
  for (const Side side : sides)
    for (int i = 0; i < perSide; ++i) {
      const bool backwards = side == Side::Right || side == Side::Top;
      pins.push_back(
          {static_cast<int>(pins.size()) + 1, side, backwards ? perSide - 1 - i : i, i == 0 || i + 1 == perSide});
    }
  return pins;
}

}  // namespace pyxis::folder
