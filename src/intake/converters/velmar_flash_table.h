// The flash ICs with .velmar files.
#pragma once

#include <array>
#include <cstdint>

#include "intake/converters/families.h"

namespace pyxis {

struct VelmarFlashRow {
  std::uint32_t ChipCode;
  const char* name;           // of the template
  std::uint16_t imageBytes;
  std::uint32_t idOffset;     // bytes
  std::uint8_t idSecond;      // second byte of the ID
  std::uint8_t idThirdHigh;   // high nibble of the third
  bool wholeConfig;           // the configuration word's low five bits are real bits
  bool usedInWords;           // UsedLength counts words
};

// clang-format off
inline constexpr std::array<VelmarFlashRow, 21> kVelmarFlashTable{{
    // code   name  imageBytes idOffset idSecond idThirdHigh wholeConfig usedInWords
    {0x3706,  "QV8121", 4094, 4096, 0x06, 0x2, false,false},
    {0x37060, "QV8122", 4094, 4096, 0x06, 0x3, false,false},
    {0x3710,  "QV8115", 8190, 8192, 0x10, 0x2, false,false},
    {0x37100, "QV8117", 8190, 8192, 0x10, 0x3, false,false},
    {0x37101, "QV8116", 8190, 8192, 0x10, 0x4, false,false},
    {0x37102, "QV8118", 8190, 8192, 0x10, 0x5, false,false},
    {0x3712,  "QV8111", 8190, 8192, 0x12, 0x2, false,false},
    {0x37120, "QV8113", 8190, 8192, 0x12, 0x3, false,false},
    {0x37121, "QV8112", 8190, 8192, 0x12, 0x4, false,false},
    {0x37122, "QV8114", 8190, 8192, 0x12, 0x5, false,false},
    {0x37130, "QV8108", 8190, 8192, 0x13, 0x2, false,false},
    {0x3713,  "QV8106", 8190, 8192, 0x13, 0x3, false,false},
    {0x37132, "QV8109", 8190, 8192, 0x13, 0x4, false,false},
    {0x37131, "QV8107", 8190, 8192, 0x13, 0x5, false,false},
    {0x3703,  "QV8120", 16382, 16384, 0x03, 0x2, false,false},
    {0x37030, "QV8119", 16382, 16384, 0x03, 0x3, false,false},
    {0x3704,  "QV8103", 16382, 16384, 0x04, 0x2, true, false},
    {0x37090, "QV8105", 16382, 16384, 0x09, 0x2, true, false},
    {0x3709,  "QV8104", 16382, 16384, 0x09, 0x3, true, false},
    {0x37140, "QV8102", 32766, 32768, 0x14, 0x2, false,true},
    {0x3714,  "QV8101", 32766, 32768, 0x14, 0x3, false,true},
}};
// clang-format on
static_assert(kVelmarFlashTable.size() == 21 && KeysAreUnique(kVelmarFlashTable));

// Bytes at the end of the image that the checksum leaves out, by the low nibble of the size byte.
inline constexpr std::array<std::uint16_t, 16> kProtectedTail{0,    0,     0,     0,     0,     0x1E,   0x3E,   0x7E,
                                                              0xFE, 0x1FE, 0x3FE, 0x7FE, 0xFFE, 0x1FFE, 0x3FFE, 0};

}  // namespace pyxis
