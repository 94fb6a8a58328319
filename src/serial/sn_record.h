// The process-wide record of a serial number run.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace pyxis {

struct SnRecord {
  std::uint32_t SnStartAddress = 0;
  std::uint32_t SnEndAddress = 0;
  std::uint8_t SnLength = 16;  // bytes
  std::string SnStartText = std::string(32, '0');
  std::array<std::uint8_t, 16> SnStartBytes{};
  std::string SnEndText = std::string(32, '0');
  std::array<std::uint8_t, 16> SnEndBytes{};
  std::string SnAmountText = "0";
  std::uint8_t SnDirection = 0;                 // 0 "Low Byte", 1 "Hight Byte"
  std::string SnOkText, SnNgText, SnTotalText;  // at most 32 characters
};

SnRecord& TheSnRecord();
void ResetSnRecord();

// The text filled with 0 on its left up to twice SnLength characters.
std::string HexPadded(const std::string& text);

}  // namespace pyxis
