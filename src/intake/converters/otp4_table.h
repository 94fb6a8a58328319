// The 4-bit ICs with .otp files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pyxis {

enum class Otp4Unit { Byte, Word };

struct Otp4Row {
  std::uint32_t ChipCode;
  const char* name;  // of the template
  Otp4Unit unit;
  std::size_t words;  // copied and summed; 0: an IC of bytes takes the file's length
  std::size_t configOffset;
};

// clang-format off
inline constexpr auto kOtp4Table = std::to_array<Otp4Row>({
    {.ChipCode = 0x1395, .name = "QV4105", .unit = Otp4Unit::Byte, .words = 0, .configOffset = 8223},
    {.ChipCode = 0x1396, .name = "QV4106", .unit = Otp4Unit::Word, .words = 6512, .configOffset = 16414},
    {.ChipCode = 0x1397, .name = "QV4103", .unit = Otp4Unit::Word, .words = 6512, .configOffset = 16414},
});
// clang-format on

}  // namespace pyxis
