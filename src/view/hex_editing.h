// What the operator's typing does to the hex view's own bytes.
#pragma once

#include <cstdint>
#include <vector>

namespace pyxis {

class HexEditing {
 public:
  std::vector<std::uint8_t> Data;

  std::int32_t DataLength() const { return static_cast<std::int32_t>(Data.size()); }
  // `nibble` counts digits from the right, from 1. False for a character that is no hexadecimal digit.
  bool TypeDigit(std::int32_t offset, int nibble, char32_t character);
  // False for a character of more than a byte.
  bool TypeCharacter(std::int32_t offset, char32_t character);
  // Removes the bytes from `from` up to `to`, as far as there are any.
  void Cut(std::int32_t from, std::int32_t to);
};

}  // namespace pyxis
