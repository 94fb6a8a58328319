// The packages that an IC comes in, as far as its figure shows them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pyxis::folder {

struct Package {
  std::vector<int> pinCounts;  // one, or all that share the figure, smallest first
  std::string name;            // of the largest, "SOP-16"
  bool fourSided = false;      // else two rows of pins

  int Pins() const { return pinCounts.back(); }
};

// The package of a row's label, or of an IC by its name.
Package PackageOf(std::string_view label);

enum class Side { Left, Bottom, Right, Top };

struct Pin {
  int number;  // from 1
  Side side;
  int place;   // from 0, from the left or from the top
  bool atEnd;  // of its side
};

// The pins in the order of their numbers, seen from above. Two rows lie below and above, with pin 1 at the bottom left;
// four sides begin with pin 1 at the top of the left side. Both run counter-clockwise.
std::vector<Pin> PinsOf(const Package& package);

}  // namespace pyxis::folder
