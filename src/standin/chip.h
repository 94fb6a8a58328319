// The chip in the stand-in writer's socket.
#pragma once

#include <cstdint>
#include <vector>

namespace pyxis::standin {

enum class ChipState { Missing, Blank, Programmed, Protected, Worn };

struct Chip {
  ChipState state = ChipState::Blank;
  std::vector<std::uint8_t> burnt;  // DataPackage as it was burnt; empty on a blank chip
  std::uint16_t config = 0xFFFF;
  std::uint16_t checksum = 0, upperChecksum = 0;  // that the writer took when it burnt the chip; 0 on any other chip

  bool Present() const { return state != ChipState::Missing; }
  // Flash is erased first; a one-time programmable chip can't be.
  bool Erase(bool flash);
  bool IsBlank() const { return state == ChipState::Blank; }
  // False for a chip that isn't there, is protected or no longer takes a charge.
  bool Burn(const std::vector<std::uint8_t>& data, std::uint16_t configWord);
  // The power went while it was burnt: the second half is as it was before.
  void BreakOff();
  bool Holds(const std::vector<std::uint8_t>& data) const;
};

}  // namespace pyxis::standin
