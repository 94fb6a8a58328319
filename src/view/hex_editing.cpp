#include "view/hex_editing.h"

#include <algorithm>

#include "platform/hex_digits.h"

namespace pyxis {

namespace {

constexpr char32_t kLargestByte = 0xFF;

}  // namespace

bool HexEditing::TypeDigit(std::int32_t offset, int nibble, char32_t character) {
  const int digit = character <= kLargestByte ? HexDigitValue(static_cast<char>(character)) : -1;
  if (digit < 0) return false;
  const int shift = 4 * (nibble - 1);
  std::uint8_t& byte = Data[static_cast<std::size_t>(offset)];
  byte = static_cast<std::uint8_t>((byte & ~(0xF << shift)) | digit << shift);
  return true;
}

bool HexEditing::TypeCharacter(std::int32_t offset, char32_t character) {
  if (character > kLargestByte) return false;
  Data[static_cast<std::size_t>(offset)] = static_cast<std::uint8_t>(character);
  return true;
}

void HexEditing::Cut(std::int32_t from, std::int32_t to) {
  Data.erase(Data.begin() + from, Data.begin() + std::min(to, DataLength()));
}

}  // namespace pyxis
