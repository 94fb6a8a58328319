// The multi-time programmable 14-bit ICs.
#pragma once

#include <array>
#include <cstdint>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"
#include "intake/file_readers.h"

namespace pyxis {

// Bytes at a file offset that tell the IC. A mask of 0 tests nothing.
struct IdBytes {
  struct Test {
    std::uint8_t value, mask;
  };
  std::uint32_t offset;
  Test tests[3];
};

struct Hex14MtpRow {
  std::uint32_t ChipCode;
  const char* name;        // of the template
  std::uint16_t length;    // words that are copied and summed
  std::uint8_t copied;     // words behind them that are copied only
  std::uint16_t config;    // index of the configuration word
  IdBytes id;
  ReadMode mode;
  std::uint16_t sumMask;   // or-ed into the configuration word before it is summed
  std::uint8_t byte73;     // ProgramParameter, low byte
  ArgumentClass argumentClass;
  std::uint8_t exhvFlags;  // IspFlags for EXHV ISP
};

// clang-format off
inline constexpr std::array<Hex14MtpRow, 25> kHex14MtpTable{{
    // code  name  length copied config {idOffset, {value, mask} x 3} mode sumMask byte73 class exhvFlags
    {0x2805,  "QV8306", 1024, 0, 1025, {2052, {{0x05, 0xFF}, {0x28, 0xFF}, {0xF2, 0xFF}}}, kReadBlankWords, 0x0000, 0x06, ArgumentClass::B, 1},
    {0x28051, "QV8307", 1024, 0, 1025, {2052, {{0x05, 0xFF}, {0x28, 0xFF}, {0xF2, 0xFF}}}, kReadBlankWords, 0x0000, 0x06, ArgumentClass::B, 1},
    {0x2778,  "QVX01", 1024, 0, 1024, {2068, {{0x78, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2724,  "QV8314", 1024, 0, 1024, {2068, {{0x24, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2735,  "QV8319", 1024, 0, 1024, {2068, {{0x35, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x103F, 0x08, ArgumentClass::B, 1},
    {0x2752,  "QV8315", 1024, 0, 1024, {2068, {{0x52, 0xFF}, {0x00, 0x00}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x27521, "QV8316", 1024, 0, 1024, {2068, {{0x52, 0xFF}, {0x00, 0x00}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2754,  "QV8321", 2033, 15, 2048, {4116, {{0x54, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2802,  "QV8312", 2048, 0, 2049, {4100, {{0x02, 0xFF}, {0x28, 0xFF}, {0xF2, 0xFF}}}, kReadBlankWords, 0x0000, 0x06, ArgumentClass::B, 1},
    {0x2806,  "QV8322", 2048, 0, 2049, {4100, {{0x06, 0xFF}, {0x28, 0xFF}, {0xF3, 0xFF}}}, kReadBlankWords, 0x0000, 0x06, ArgumentClass::B, 1},
    {0x2726,  "QV8317", 2048, 0, 2048, {4116, {{0x26, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2736,  "QV8320", 2048, 0, 2048, {4116, {{0x36, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x103F, 0x08, ArgumentClass::B, 1},
    {0x2738,  "QV8309", 2048, 0, 2048, {4116, {{0x38, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x27381, "QV8310", 2048, 0, 2048, {4116, {{0x38, 0xFF}, {0x03, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x27530, "QV8305", 2048, 0, 2048, {4116, {{0x53, 0xFF}, {0x01, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x27531, "QV8308", 2048, 0, 2048, {4116, {{0x53, 0xFF}, {0x03, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2753,  "QV8311", 2048, 0, 2048, {4116, {{0x53, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2722,  "QV8201", 4096, 0, 4096, {8212, {{0x22, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadZeroWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2725,  "QV8313", 4096, 0, 4096, {8212, {{0x25, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2727,  "QV8318", 4096, 0, 4096, {8212, {{0x27, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x10BF, 0x08, ArgumentClass::B, 1},
    {0x2705,  "QV8301", 4096, 0, 4096, {8212, {{0x05, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x003F, 0x08, ArgumentClass::A, 1},
    {0x27050, "QV8302", 4096, 0, 4096, {8212, {{0x05, 0xFF}, {0x03, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x003F, 0x08, ArgumentClass::A, 1},
    {0x2748,  "QV8202", 4096, 0, 4096, {8212, {{0x48, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadZeroWords, 0x001F, 0x08, ArgumentClass::B, 1},
    {0x2708,  "QV8303", 8192, 0, 8192, {16404, {{0x08, 0xFF}, {0x02, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x003F, 0x08, ArgumentClass::C, 3},
    {0x27081, "QV8304", 8192, 0, 8192, {16404, {{0x08, 0xFF}, {0x03, 0x03}, {0x00, 0x00}}}, kReadBlankWords, 0x003F, 0x08, ArgumentClass::C, 3},
}};
// clang-format on
static_assert(kHex14MtpTable.size() == 25 && KeysAreUnique(kHex14MtpTable));

}  // namespace pyxis
