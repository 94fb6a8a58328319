// Hexadecimal digits, of either case.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pyxis {

inline constexpr auto kHexDigitValues = [] {
  std::array<std::int8_t, 256> values{};
  values.fill(-1);
  constexpr std::string_view kUpper = "0123456789ABCDEF", kLower = "0123456789abcdef";
  for (std::size_t i = 0; i < kUpper.size(); ++i)
    values[static_cast<std::size_t>(kUpper[i])] = values[static_cast<std::size_t>(kLower[i])] =
        static_cast<std::int8_t>(i);
  return values;
}();

// Value of a digit, or -1.
constexpr int HexDigitValue(char c) { return kHexDigitValues[static_cast<unsigned char>(c)]; }

// Whether the text begins with "0x", and the text without it.
constexpr bool HasHexPrefix(std::string_view text) {
  return text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}
constexpr std::string_view WithoutHexPrefix(std::string_view text) {
  return HasHexPrefix(text) ? text.substr(2) : text;
}

// How many digits the text begins with.
constexpr std::size_t CountHexDigits(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && HexDigitValue(text[count]) >= 0) ++count;
  return count;
}

// Up to maxDigits (at most 8) hexadecimal digits; negative means the whole text. Leading "0" and blanks are passed
// over, the first other character ends the number.
constexpr std::uint32_t ParseHexDigits(std::string_view text, int maxDigits = -1) {
  if (maxDigits >= 0) text = text.substr(0, static_cast<std::size_t>(maxDigits));
  text.remove_prefix(std::min(text.find_first_not_of("0 "), text.size()));
  std::uint32_t value = 0;
  for (const char c : text.substr(0, 8)) {
    const int digit = HexDigitValue(c);
    if (digit < 0) break;
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return value;
}

}  // namespace pyxis
