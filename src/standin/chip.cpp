#include "standin/chip.h"

#include <algorithm>

namespace pyxis::standin {

bool Chip::Erase(bool flash) {
  if (!Present()) return false;
  if (!flash) return IsBlank();
  if (state == ChipState::Worn) return false;
  *this = Chip{};
  return true;
}

bool Chip::Burn(const std::vector<std::uint8_t>& data, std::uint16_t configWord) {
  if (state == ChipState::Worn) {
    burnt = data;
    if (!burnt.empty()) burnt.front() ^= 1;  // a cell that doesn't take
    return false;
  }
  if (!IsBlank()) return false;
  burnt = data;
  config = configWord;
  state = ChipState::Programmed;
  return true;
}

void Chip::BreakOff() {
  std::fill(burnt.begin() + static_cast<std::ptrdiff_t>(burnt.size() / 2), burnt.end(), std::uint8_t{0xFF});
  checksum = upperChecksum = 0;
}

bool Chip::Holds(const std::vector<std::uint8_t>& data) const {
  return (state == ChipState::Programmed || state == ChipState::Protected) && burnt == data;
}

}  // namespace pyxis::standin
