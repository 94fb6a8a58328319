// The flash ICs with a block of option words behind the image.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pyxis {

// How the second byte of the option block sets the IC up.
struct BlockMode {
  std::uint8_t key;
  std::uint16_t dualSkip;   // words left out of the checksum
  std::size_t optionIndex;  // block word with the first option word
  std::uint16_t parameter;  // ProgramParameter
};

struct VelmarBlockRow {
  const char* ChipName;
  std::uint16_t imageBytes;
  std::size_t blockWords;
  std::size_t idOffset;
  std::uint8_t idSecond;     // second byte of the ID
  std::uint8_t idThirdHigh;  // high nibble of the third
  std::array<BlockMode, 2> modes;
};

// clang-format off
inline constexpr auto kVelmarBlockTable = std::to_array<VelmarBlockRow>({
    {.ChipName = "QV8123", .imageBytes = 16384, .blockWords = 48,
     .idOffset = 16432, .idSecond = 0x02, .idThirdHigh = 0x3,
     .modes = std::to_array<BlockMode>({{.key = 0xFE, .dualSkip = 0, .optionIndex = 2, .parameter = 53},
                {.key = 0xE0, .dualSkip = 4096, .optionIndex = 10, .parameter = 64}})},
});
// clang-format on

}  // namespace pyxis
