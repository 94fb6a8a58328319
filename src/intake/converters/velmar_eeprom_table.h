// The flash ICs whose program file may be raw EEPROM content as well.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

struct VelmarEepromRow {
  std::uint32_t ChipCode;
  const char* name;          // of the template
  std::uint16_t imageBytes;  // the configuration word lies behind them, and the ID behind that
  std::uint8_t idSecond;     // second byte of the ID
  std::uint8_t idThirdHigh;  // high nibble of the third
};

inline constexpr auto kVelmarEepromTable = std::to_array<VelmarEepromRow>(
    {{.ChipCode = 0x37061, .name = "QV8401", .imageBytes = 4094, .idSecond = 0x06, .idThirdHigh = 0x2}});

}  // namespace pyxis
