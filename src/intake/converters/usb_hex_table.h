// The low-speed USB ICs with .hex files.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

struct UsbHexRow {
  const char* ChipName;
  std::uint32_t imageBytes;
  const char* tag;                         // of the .otp copy
  std::array<std::uint8_t, 14> constants;  // of the .otp copy's header, from offset 18
};

// clang-format off
inline constexpr auto kUsbHexTable = std::to_array<UsbHexRow>({
    {.ChipName = "QVL04", .imageBytes = 32768, .tag = "qvl04xx",
     .constants = std::to_array<std::uint8_t>({0x1E, 0x11, 0x11, 0x19, 0x10, 0x12, 0x1F, 0x11, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10})},
    {.ChipName = "QVL05", .imageBytes = 16384, .tag = "qvl05xx",
     .constants = std::to_array<std::uint8_t>({0x1B, 0x11, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})},
    {.ChipName = "QVL06", .imageBytes = 24576, .tag = "qvl06xx",
     .constants = std::to_array<std::uint8_t>({0x1E, 0x11, 0x11, 0x19, 0x10, 0x11, 0x1F, 0x10, 0x1F, 0x10, 0x10, 0x10, 0x10, 0x10})},
    {.ChipName = "QVL13", .imageBytes = 16384, .tag = "qvl14xx",
     .constants = std::to_array<std::uint8_t>({0x1C, 0x12, 0x11, 0x19, 0x10, 0x10, 0x10, 0x10, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})},
});
// clang-format on

}  // namespace pyxis
