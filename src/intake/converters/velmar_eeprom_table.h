// The flash ICs whose program file may be raw EEPROM content as well.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

struct VelmarEepromRow {
  const char* ChipName;
  std::uint16_t imageBytes;  // the configuration word lies behind them, and the ID behind that
  std::uint8_t idSecond;     // second byte of the ID
  std::uint8_t idThirdHigh;  // high nibble of the third
};

inline constexpr auto kVelmarEepromTable =
    std::to_array<VelmarEepromRow>({{.ChipName = "QV8401", .imageBytes = 4094, .idSecond = 0x06, .idThirdHigh = 0x2}});

}  // namespace pyxis
