// The process-wide record of a serial number run.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "intake/package_files.h"

namespace pyxis {

struct SnRecord {
  std::uint32_t SnStartAddress = 0;
  std::uint32_t SnEndAddress = 0;
  std::uint8_t SnLength = kSerialBytes;  // bytes
  std::string SnStartText = std::string(2 * kSerialBytes, '0');
  std::array<std::uint8_t, kSerialBytes> SnStartBytes{};
  std::string SnEndText = std::string(2 * kSerialBytes, '0');
  std::array<std::uint8_t, kSerialBytes> SnEndBytes{};
  std::string SnAmountText = "0";
  std::uint8_t SnDirection = 0;                 // 0 "Low Byte", 1 "Hight Byte"
  std::string SnOkText, SnNgText, SnTotalText;  // at most 32 characters
};

SnRecord& TheSnRecord();
void ResetSnRecord();

// The text filled with 0 on its left up to twice SnLength characters.
std::string HexPadded(const std::string& text);

}  // namespace pyxis
