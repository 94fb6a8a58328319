// The flash ICs with .velmar files.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

struct VelmarFlashRow {
  const char* ChipName;
  std::uint16_t imageBytes;  // the configuration word lies behind them, and the ID behind that
  std::uint8_t idSecond;     // second byte of the ID
  std::uint8_t idThirdHigh;  // high nibble of the third
  bool wholeConfig;          // the configuration word's low five bits are real bits
  bool usedInWords;          // UsedLength counts words
};

// clang-format off
inline constexpr auto kVelmarFlashTable = std::to_array<VelmarFlashRow>({
    {.ChipName = "QV8121", .imageBytes = 4094, .idSecond = 0x06, .idThirdHigh = 0x2, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8122", .imageBytes = 4094, .idSecond = 0x06, .idThirdHigh = 0x3, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8115", .imageBytes = 8190, .idSecond = 0x10, .idThirdHigh = 0x2, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8117", .imageBytes = 8190, .idSecond = 0x10, .idThirdHigh = 0x3, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8116", .imageBytes = 8190, .idSecond = 0x10, .idThirdHigh = 0x4, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8118", .imageBytes = 8190, .idSecond = 0x10, .idThirdHigh = 0x5, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8111", .imageBytes = 8190, .idSecond = 0x12, .idThirdHigh = 0x2, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8113", .imageBytes = 8190, .idSecond = 0x12, .idThirdHigh = 0x3, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8112", .imageBytes = 8190, .idSecond = 0x12, .idThirdHigh = 0x4, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8114", .imageBytes = 8190, .idSecond = 0x12, .idThirdHigh = 0x5, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8108", .imageBytes = 8190, .idSecond = 0x13, .idThirdHigh = 0x2, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8106", .imageBytes = 8190, .idSecond = 0x13, .idThirdHigh = 0x3, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8109", .imageBytes = 8190, .idSecond = 0x13, .idThirdHigh = 0x4, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8107", .imageBytes = 8190, .idSecond = 0x13, .idThirdHigh = 0x5, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8120", .imageBytes = 16382, .idSecond = 0x03, .idThirdHigh = 0x2, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8119", .imageBytes = 16382, .idSecond = 0x03, .idThirdHigh = 0x3, .wholeConfig = false, .usedInWords = false},
    {.ChipName = "QV8103", .imageBytes = 16382, .idSecond = 0x04, .idThirdHigh = 0x2, .wholeConfig = true, .usedInWords = false},
    {.ChipName = "QV8105", .imageBytes = 16382, .idSecond = 0x09, .idThirdHigh = 0x2, .wholeConfig = true, .usedInWords = false},
    {.ChipName = "QV8104", .imageBytes = 16382, .idSecond = 0x09, .idThirdHigh = 0x3, .wholeConfig = true, .usedInWords = false},
    {.ChipName = "QV8102", .imageBytes = 32766, .idSecond = 0x14, .idThirdHigh = 0x2, .wholeConfig = false, .usedInWords = true},
    {.ChipName = "QV8101", .imageBytes = 32766, .idSecond = 0x14, .idThirdHigh = 0x3, .wholeConfig = false, .usedInWords = true},
});
// clang-format on

// Bytes at the end of the image that the checksum leaves out, by the low nibble of the size byte.
inline constexpr std::array<std::uint16_t, 16> kProtectedTail{0,    0,     0,     0,     0,     0x1E,   0x3E,   0x7E,
                                                              0xFE, 0x1FE, 0x3FE, 0x7FE, 0xFFE, 0x1FFE, 0x3FFE, 0};

}  // namespace pyxis
