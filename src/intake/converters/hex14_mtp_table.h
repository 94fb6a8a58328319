// The multi-time programmable 14-bit ICs.
#pragma once

#include <array>
#include <cstdint>

#include "intake/converters/argument_class.h"
#include "intake/file_readers.h"
#include "intake/package_files.h"

namespace pyxis {

// How a memory of one size lies in the image and in the package.
struct Hex14MtpMemory {
  std::uint16_t length;    // words that are copied and summed
  std::uint8_t copied;     // words behind them that are copied only
  std::uint16_t config;    // index of the configuration word
  std::uint32_t idOffset;  // of the bytes that tell the IC
  std::uint8_t byte73;     // ProgramParameter, low byte
};

// clang-format off
inline constexpr Hex14MtpMemory kMtp1024{.length = 1024, .copied = 0, .config = 1024, .idOffset = 2068, .byte73 = 0x08};
inline constexpr Hex14MtpMemory kMtp2033{.length = 2033, .copied = 15, .config = 2048, .idOffset = 4116, .byte73 = 0x08};
inline constexpr Hex14MtpMemory kMtp2048{.length = 2048, .copied = 0, .config = 2048, .idOffset = 4116, .byte73 = 0x08};
inline constexpr Hex14MtpMemory kMtp4096{.length = 4096, .copied = 0, .config = 4096, .idOffset = 8212, .byte73 = 0x08};
inline constexpr Hex14MtpMemory kMtp8192{.length = 8192, .copied = 0, .config = 8192, .idOffset = 16404, .byte73 = 0x08};
// With a longer ID, right behind the configuration word.
inline constexpr Hex14MtpMemory kMtp1024Long{.length = 1024, .copied = 0, .config = 1025, .idOffset = 2052, .byte73 = 0x06};
inline constexpr Hex14MtpMemory kMtp2048Long{.length = 2048, .copied = 0, .config = 2049, .idOffset = 4100, .byte73 = 0x06};
// clang-format on

// What the bytes at the ID offset must be; a mask of 0 tests nothing.
struct IdTest {
  std::uint8_t value, mask;
};
using IdTests = std::array<IdTest, 3>;
// The low byte, and the two low bits of the high byte.
constexpr IdTests ShortId(std::uint8_t low, std::uint8_t high) { return {{{low, 0xFF}, {high, 3}, {0, 0}}}; }
constexpr IdTests LowId(std::uint8_t low) { return {{{low, 0xFF}, {0, 0}, {0, 0}}}; }
constexpr IdTests LongId(std::uint8_t first, std::uint8_t second, std::uint8_t third) {
  return {{{first, 0xFF}, {second, 0xFF}, {third, 0xFF}}};
}

struct Hex14MtpRow {
  const char* ChipName;
  const Hex14MtpMemory& memory;
  IdTests id;
  std::uint16_t sumMask;  // or-ed into the configuration word before it is summed
  ReadMode mode;
  ArgumentClass argumentClass;
  std::uint8_t exhvFlags;  // IspFlags for EXHV ISP
};

// clang-format off
inline constexpr auto kHex14MtpTable = std::to_array<Hex14MtpRow>({
    {.ChipName = "QV8306", .memory = kMtp1024Long, .id = LongId(0x05, 0x28, 0xF2), .sumMask = 0x0000,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8307", .memory = kMtp1024Long, .id = LongId(0x05, 0x28, 0xF2), .sumMask = 0x0000,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QVX01", .memory = kMtp1024, .id = ShortId(0x78, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8314", .memory = kMtp1024, .id = ShortId(0x24, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8319", .memory = kMtp1024, .id = ShortId(0x35, 2), .sumMask = 0x103F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8315", .memory = kMtp1024, .id = LowId(0x52), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8316", .memory = kMtp1024, .id = LowId(0x52), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8321", .memory = kMtp2033, .id = ShortId(0x54, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8312", .memory = kMtp2048Long, .id = LongId(0x02, 0x28, 0xF2), .sumMask = 0x0000,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8322", .memory = kMtp2048Long, .id = LongId(0x06, 0x28, 0xF3), .sumMask = 0x0000,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8317", .memory = kMtp2048, .id = ShortId(0x26, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8320", .memory = kMtp2048, .id = ShortId(0x36, 2), .sumMask = 0x103F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8309", .memory = kMtp2048, .id = ShortId(0x38, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8310", .memory = kMtp2048, .id = ShortId(0x38, 3), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8305", .memory = kMtp2048, .id = ShortId(0x53, 1), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8308", .memory = kMtp2048, .id = ShortId(0x53, 3), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8311", .memory = kMtp2048, .id = ShortId(0x53, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8201", .memory = kMtp4096, .id = ShortId(0x22, 2), .sumMask = 0x001F,
     .mode = kReadZeroWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8313", .memory = kMtp4096, .id = ShortId(0x25, 2), .sumMask = 0x001F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8318", .memory = kMtp4096, .id = ShortId(0x27, 2), .sumMask = 0x10BF,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8301", .memory = kMtp4096, .id = ShortId(0x05, 2), .sumMask = 0x003F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::A, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8302", .memory = kMtp4096, .id = ShortId(0x05, 3), .sumMask = 0x003F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::A, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8202", .memory = kMtp4096, .id = ShortId(0x48, 2), .sumMask = 0x001F,
     .mode = kReadZeroWords, .argumentClass = ArgumentClass::B, .exhvFlags = kExhvIspBit},
    {.ChipName = "QV8303", .memory = kMtp8192, .id = ShortId(0x08, 2), .sumMask = 0x003F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::C, .exhvFlags = 3},
    {.ChipName = "QV8304", .memory = kMtp8192, .id = ShortId(0x08, 3), .sumMask = 0x003F,
     .mode = kReadBlankWords, .argumentClass = ArgumentClass::C, .exhvFlags = 3},
});
// clang-format on

}  // namespace pyxis
