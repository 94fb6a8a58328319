// The 4-bit ICs with .otp files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pyxis {

inline constexpr std::size_t kOtp4Header = 32;  // bytes of the program file, skipped

enum class Otp4Unit { Byte, Word };

struct Otp4Row {
  const char* ChipName;
  Otp4Unit unit;
  std::size_t words;  // copied and summed; 0: an IC of bytes takes the file's length
  std::size_t configOffset;
};

// clang-format off
inline constexpr auto kOtp4Table = std::to_array<Otp4Row>({
    {.ChipName = "QV4105", .unit = Otp4Unit::Byte, .words = 0, .configOffset = 8223},
    {.ChipName = "QV4106", .unit = Otp4Unit::Word, .words = 6512, .configOffset = 16414},
    {.ChipName = "QV4103", .unit = Otp4Unit::Word, .words = 6512, .configOffset = 16414},
});
// clang-format on

}  // namespace pyxis
