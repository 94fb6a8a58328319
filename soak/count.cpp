#include "soak/count.h"

#include <algorithm>

namespace pyxis::soak {

std::string Hex(Number value) {
  std::string text;
  do {
    text.insert(text.begin(), "0123456789ABCDEF"[static_cast<int>(value & 15)]);
    value >>= 4;
  } while (value != 0);
  return text;
}

std::string Series::Padded(const std::string& digits) const {
  return digits.size() < 2 * length ? std::string(2 * length - digits.size(), '0') + digits : digits;
}

std::string Series::Shown() const {
  const bool behindAll = given != 0 && Next() == 0;
  return behindAll ? "1" + std::string(32, '0') : Padded(Hex(Next()));
}

std::string Series::ShownLast() const { return Padded(Hex(first + (amount - 1))); }

std::vector<std::size_t> Series::Places(Unit unit) const {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < length; ++i) {
    switch (unit) {
      case Unit::Byte:
        places.push_back(address + i);
        break;
      case Unit::Word:
        places.push_back(2 * (address + i) + 1);
        break;
      case Unit::Packed:
        places.push_back(2 * (address + i / 2) + (i % 2 == 0 ? 1 : 0));
        break;
    }
  }
  if (direction == 1) std::reverse(places.begin(), places.end());
  return places;
}

Bytes Series::Chip(Bytes data, Unit unit) const {
  const std::vector<std::size_t> places = Places(unit);
  for (std::size_t i = 0; i < length; ++i)
    data.at(places[i]) = static_cast<std::uint8_t>(Next() >> 8 * (length - 1 - i));
  return data;
}

Number Series::Carried(const Bytes& chip, Unit unit) const {
  Number serial = 0;
  for (const std::size_t place : Places(unit)) serial = serial << 8 | chip.at(place);
  return serial;
}

}  // namespace pyxis::soak
