// The low-speed USB ICs with .hex files.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

struct UsbHexRow {
  std::uint32_t ChipCode;
  const char* name;  // of the template
  std::uint32_t imageBytes;
  const char* tag;                         // of the .otp copy
  std::array<std::uint8_t, 14> constants;  // of the .otp copy's header, from offset 18
};

// clang-format off
inline constexpr auto kUsbHexTable = std::to_array<UsbHexRow>({
    {.ChipCode = 0x1622, .name = "QVL04", .imageBytes = 32768, .tag = "qvl04xx",
     .constants = std::to_array<std::uint8_t>({0x1E, 0x11, 0x11, 0x19, 0x10, 0x12, 0x1F, 0x11, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10})},
    {.ChipCode = 0x1630, .name = "QVL05", .imageBytes = 16384, .tag = "qvl05xx",
     .constants = std::to_array<std::uint8_t>({0x1B, 0x11, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})},
    {.ChipCode = 0x1636, .name = "QVL06", .imageBytes = 24576, .tag = "qvl06xx",
     .constants = std::to_array<std::uint8_t>({0x1E, 0x11, 0x11, 0x19, 0x10, 0x11, 0x1F, 0x10, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10})},
    {.ChipCode = 0x1632, .name = "QVL13", .imageBytes = 16384, .tag = "qvl14xx",
     .constants = std::to_array<std::uint8_t>({0x1C, 0x12, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})},
});
// clang-format on

}  // namespace pyxis
