// The one-time programmable 14-bit ICs.
#pragma once

#include <array>
#include <cstdint>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"

namespace pyxis {

// What goes into IspFlags.
enum class IspByte { Template, ExhvIsp, DualMode };  // nothing; 1 for EXHV ISP; 16 in dual mode
// What goes into UsedLength: the index of the last word that isn't blank, or always the length.
enum class UsedWords { Tracked, Length };

// In dual mode the serial range moves into the upper half of the memory.
struct SerialMove {
  std::uint8_t shift;    // added to the high byte of both addresses
  std::uint16_t limit;   // the new end address must be less
  const char* message;   // when it isn't
};

struct Hex14OtpRow {
  std::uint32_t ChipCode;
  const char* name;          // of the template
  std::uint16_t length;      // words that are copied and summed
  std::uint16_t config;      // index of the configuration word
  std::uint16_t idWord;      // index of the word with the IC's identity
  std::uint8_t idLow;        // its low byte
  std::uint8_t idHighMask;   // bits of its high byte that are tested
  std::uint8_t idHigh;       // their value
  std::uint16_t dualSkip;    // words left out of the checksum in dual mode; 0: no dual mode
  std::uint16_t sumMask;     // or-ed into the configuration word before it is summed
  std::uint8_t byte72;       // ProgramParameter, high byte
  std::uint8_t dualByte73;   // ProgramParameter, low byte in dual mode; 0xFF outside it
  std::uint8_t copied;       // words behind the length that go to the package, outside the checksum
  std::uint8_t blanks;       // words behind the length that are replaced by blank words
  std::uint16_t outputSet;   // bits set in the configuration word that goes out
  std::uint16_t outputClear; // bits cleared in it first
  bool dualSumBits;          // the checksum gets bits 12 and 13 in dual mode
  bool protectByte;          // ProtectFlags is 16 when bit 11 of the configuration word is 0
  IspByte isp;
  UsedWords used;
  int idCode;                // returned for a wrong ID
  SerialMove serialMove;
};

inline constexpr SerialMove kNoLimit{0, 0, nullptr};
inline constexpr SerialMove k3fb{2, 1020, "S/N End Address > 0x3fb"};
inline constexpr SerialMove k3fc{2, 1020, "S/N End Address > 0x3fc"};
inline constexpr SerialMove k7fc{2, 2044, "S/N End Address > 0x7fc"};
inline constexpr SerialMove kffc{2, 4092, "S/N End Address > 0xffc"};
inline constexpr SerialMove kffcFar{8, 4092, "S/N End Address > 0xffc"};

// clang-format off
inline constexpr std::array<Hex14OtpRow, 60> kHex14OtpTable{{
    // code   name           length config idWord idLow idHigh(mask, value) dualSkip sumMask byte72 73 copied blanks set clear dualSumBits protectByte isp used idCode serialMove
    {0x2801,  "QV8333",     1019, 1020, 1021, 0x01, 3, 2, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28016, "QV8334",     1019, 1020, 1021, 0x01, 3, 2, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28014, "QV8335",     1019, 1020, 1021, 0x01, 3, 2, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28011, "QV8370",     1019, 1020, 1021, 0x01, 3, 3, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28017, "QV8371",     1019, 1020, 1021, 0x01, 3, 3, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28015, "QV8372",     1019, 1020, 1021, 0x01, 3, 3, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28012, "QV8502",     1019, 1020, 1021, 0x01, 3, 3, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28013, "QV8503_2XX", 1019, 1020, 1021, 0x01, 3, 3, 0x200, 0x201F, 0x86, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x2701,  "QV8349",     1020, 1020, 1022, 0x01, 3, 2, 0x200, 0x203F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2700,  "QV8348",     1020, 1020, 1022, 0x10, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27011, "QV8323",     1020, 1020, 1022, 0x11, 3, 1, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27111, "QV8355",     1020, 1020, 1022, 0x11, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2711,  "QV8350",     1020, 1020, 1022, 0x11, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2712,  "QV8329",     1020, 1020, 1022, 0x12, 3, 2, 0x200, 0x203F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::DualMode,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2702,  "QV8330",     1020, 1020, 1022, 0x12, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27133, "QV8327",     1020, 1020, 1022, 0x13, 3, 1, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2713,  "QV8356",     1020, 1020, 1022, 0x13, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27130, "QV8357",     1020, 1020, 1022, 0x13, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27131, "QV8358",     1020, 1020, 1022, 0x13, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27132, "QV8359",     1020, 1020, 1022, 0x13, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27134, "QV8365",     1020, 1020, 1022, 0x13, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2737,  "QV8360",     1020, 1020, 1022, 0x37, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x17402, "QV8325",     1020, 1020, 1022, 0x40, 3, 0, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x17403, "QV8326",     1020, 1020, 1022, 0x40, 3, 0, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x1740,  "QV8324",     1020, 1020, 1022, 0x40, 3, 1, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2740,  "QV8351",     1020, 1020, 1022, 0x40, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fc},
    {0x27401, "QV8352",     1020, 1020, 1022, 0x40, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fc},
    {0x27403, "QV8353",     1020, 1020, 1022, 0x40, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fc},
    {0x27404, "QV8354",     1020, 1020, 1022, 0x40, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fc},
    {0x27430, "QV8328",     1020, 1020, 1022, 0x43, 3, 1, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2743,  "QV8361",     1020, 1020, 1022, 0x43, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27431, "QV8362",     1020, 1020, 1022, 0x43, 3, 2, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27432, "QV8363",     1020, 1020, 1022, 0x43, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27433, "QV8364",     1020, 1020, 1022, 0x43, 3, 3, 0x200, 0x201F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2744,  "QV8332",     1020, 1020, 1022, 0x44, 3, 2, 0x200, 0x231F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x2747,  "QV8331",     1020, 1020, 1022, 0x47, 2, 2, 0x200, 0x233F, 0x86, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     k3fc},
    {0x27293, "QV8342",     2040, 2044, 2046, 0x29, 3, 0, 0x000, 0x303F, 0x8E, 0xFF, 4, 0, 0x1F,  0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x27292, "QV8340",     2040, 2044, 2046, 0x29, 3, 1, 0x000, 0x303F, 0x8E, 0xFF, 4, 0, 0x1F,  0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x27291, "QV8341",     2042, 2044, 2046, 0x29, 3, 2, 0x000, 0x303F, 0x8E, 0xFF, 2, 0, 0x1F,  0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x2729,  "QV8339",     2042, 2044, 2046, 0x29, 3, 3, 0x000, 0x303F, 0x8E, 0xFF, 2, 0, 0x1F,  0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x2746,  "QV8337",     2044, 2044, 2046, 0x46, 3, 2, 0x000, 0x201F, 0x8E, 0xFF, 0, 0, 0x1F,  0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x2757,  "QV8338",     2044, 2044, 2046, 0x46, 3, 2, 0x000, 0x201F, 0x8E, 0xFF, 0, 0, 0x1F,  0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x2756,  "QV8343",     2044, 2044, 2046, 0x56, 3, 3, 0x000, 0x21FF, 0x8E, 0xFF, 0, 0, 0x1FF, 0x0,  false, false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kNoLimit},
    {0x2750,  "QV8366",     2044, 2044, 2046, 0x50, 3, 2, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x100, true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x27503, "QV8367",     2044, 2044, 2046, 0x50, 3, 2, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x100, true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x27501, "QV8373",     2044, 2044, 2046, 0x50, 3, 3, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x27505, "QV8503_5XX", 2044, 2044, 2046, 0x50, 3, 3, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x27506, "QV8503_8XX", 2044, 2044, 2046, 0x50, 3, 3, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x27502, "QV8374",     2044, 2044, 2046, 0x50, 3, 3, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x27504, "QV8375",     2044, 2044, 2046, 0x50, 3, 3, 0x400, 0x231F, 0x8E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     k7fc},
    {0x2803,  "QV8347",     4091, 4092, 4093, 0x03, 3, 2, 0x800, 0x201F, 0x9E, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x28031, "QV8378",     4091, 4092, 4093, 0x03, 3, 3, 0x800, 0x201F, 0x9E, 0xFB, 0, 1, 0x1F,  0x0,  false, false, IspByte::ExhvIsp,    UsedWords::Tracked, kWrongId,     k3fb},
    {0x27091, "QV8336",     4092, 4092, 4094, 0x09, 3, 1, 0x000, 0x203F, 0x9E, 0xFF, 0, 0, 0x1F,  0x0,  false, true,  IspByte::Template,   UsedWords::Length,  kImageFailed, kNoLimit},
    {0x2709,  "QV8344",     4092, 4092, 4094, 0x09, 3, 2, 0x800, 0x203F, 0x9E, 0xFD, 0, 0, 0x1F,  0x0,  true,  true,  IspByte::Template,   UsedWords::Tracked, kWrongId,     kffcFar},
    {0x2728,  "QV8368",     4092, 4092, 4094, 0x28, 3, 2, 0x800, 0x203F, 0x9E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kffc},
    {0x2755,  "QV8345",     4092, 4092, 4094, 0x55, 3, 2, 0x800, 0x201F, 0x9E, 0xFD, 0, 0, 0x1F,  0x20, true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kffc},
    {0x27553, "QV8346",     4092, 4092, 4094, 0x55, 3, 2, 0x800, 0x201F, 0x9E, 0xFD, 0, 0, 0x1F,  0x20, true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kffc},
    {0x27551, "QV8376",     4092, 4092, 4094, 0x55, 3, 3, 0x800, 0x201F, 0x9E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kffc},
    {0x27554, "QV8377",     4092, 4092, 4094, 0x55, 3, 3, 0x800, 0x201F, 0x9E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kffc},
    {0x27552, "QV8501",     4092, 4092, 4094, 0x55, 3, 3, 0x800, 0x201F, 0x9E, 0xFD, 0, 0, 0x1F,  0x0,  true,  false, IspByte::Template,   UsedWords::Tracked, kWrongId,     kffc},
}};
// clang-format on
static_assert(kHex14OtpTable.size() == 60 && KeysAreUnique(kHex14OtpTable));

}  // namespace pyxis
