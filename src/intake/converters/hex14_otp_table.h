// The one-time programmable 14-bit ICs.
#pragma once

#include <array>
#include <cstdint>

#include "intake/convert.h"

namespace pyxis {

// In dual mode the serial range moves into the upper half of the memory.
struct SerialMove {
  std::uint8_t shift;   // added to the high byte of both addresses
  std::uint16_t limit;  // the new end address must be less
  const char* message;  // when it isn't
};

inline constexpr SerialMove kTo3fb{.shift = 2, .limit = 1020, .message = "S/N End Address > 0x3fb"};
inline constexpr SerialMove kTo3fc{.shift = 2, .limit = 1020, .message = "S/N End Address > 0x3fc"};
inline constexpr SerialMove kTo7fc{.shift = 2, .limit = 2044, .message = "S/N End Address > 0x7fc"};
inline constexpr SerialMove kToFfc{.shift = 2, .limit = 4092, .message = "S/N End Address > 0xffc"};
inline constexpr SerialMove kFarToFfc{.shift = 8, .limit = 4092, .message = "S/N End Address > 0xffc"};

struct DualMode {
  std::uint16_t skip;   // words left out of the checksum; 0: the IC has no dual mode
  std::uint8_t byte73;  // ProgramParameter, low byte; 0xFF outside dual mode
  bool sumBits;         // the checksum gets bits 12 and 13
  SerialMove serialMove;
};
inline constexpr DualMode kNoDualMode{.skip = 0, .byte73 = 0xFF, .sumBits = false, .serialMove = {}};

// How a memory of one size lies in the image and in the package.
struct Hex14OtpMemory {
  std::uint16_t length;     // words that are copied and summed
  std::uint8_t copied;      // words behind them that go to the package, outside the checksum
  std::uint8_t blanks;      // words behind them that are replaced by blank words
  std::uint16_t serialEnd;  // the highest end of a serial number; one memory takes them in its lower half alone
  std::uint16_t config;     // index of the configuration word
  std::uint16_t idWord;     // index of the word with the IC's identity
  std::uint8_t byte72;      // ProgramParameter, high byte
  DualMode dual;
};

// clang-format off
inline constexpr Hex14OtpMemory kOtp1019{
    .length = 1019, .copied = 0, .blanks = 1, .serialEnd = 1019, .config = 1020, .idWord = 1021, .byte72 = 0x86,
    .dual = {.skip = 0x200, .byte73 = 0xFB, .sumBits = false, .serialMove = kTo3fb}};
inline constexpr Hex14OtpMemory kOtp1020{
    .length = 1020, .copied = 0, .blanks = 0, .serialEnd = 1020, .config = 1020, .idWord = 1022, .byte72 = 0x86,
    .dual = {.skip = 0x200, .byte73 = 0xFD, .sumBits = true, .serialMove = kTo3fc}};
inline constexpr Hex14OtpMemory kOtp2040{
    .length = 2040, .copied = 4, .blanks = 0, .serialEnd = 2044, .config = 2044, .idWord = 2046, .byte72 = 0x8E, .dual = kNoDualMode};
inline constexpr Hex14OtpMemory kOtp2042{
    .length = 2042, .copied = 2, .blanks = 0, .serialEnd = 2044, .config = 2044, .idWord = 2046, .byte72 = 0x8E, .dual = kNoDualMode};
inline constexpr Hex14OtpMemory kOtp2044{
    .length = 2044, .copied = 0, .blanks = 0, .serialEnd = 2044, .config = 2044, .idWord = 2046, .byte72 = 0x8E, .dual = kNoDualMode};
inline constexpr Hex14OtpMemory kOtp2044Dual{
    .length = 2044, .copied = 0, .blanks = 0, .serialEnd = 2044, .config = 2044, .idWord = 2046, .byte72 = 0x8E,
    .dual = {.skip = 0x400, .byte73 = 0xFD, .sumBits = true, .serialMove = kTo7fc}};
inline constexpr Hex14OtpMemory kOtp4091{
    .length = 4091, .copied = 0, .blanks = 1, .serialEnd = 4091, .config = 4092, .idWord = 4093, .byte72 = 0x9E,
    .dual = {.skip = 0x800, .byte73 = 0xFB, .sumBits = false, .serialMove = kTo3fb}};
inline constexpr Hex14OtpMemory kOtp4092{
    .length = 4092, .copied = 0, .blanks = 0, .serialEnd = 2044, .config = 4092, .idWord = 4094, .byte72 = 0x9E, .dual = kNoDualMode};
inline constexpr Hex14OtpMemory kOtp4092Dual{
    .length = 4092, .copied = 0, .blanks = 0, .serialEnd = 4092, .config = 4092, .idWord = 4094, .byte72 = 0x9E,
    .dual = {.skip = 0x800, .byte73 = 0xFD, .sumBits = true, .serialMove = kToFfc}};
inline constexpr Hex14OtpMemory kOtp4092DualFar{
    .length = 4092, .copied = 0, .blanks = 0, .serialEnd = 4092, .config = 4092, .idWord = 4094, .byte72 = 0x9E,
    .dual = {.skip = 0x800, .byte73 = 0xFD, .sumBits = true, .serialMove = kFarToFfc}};
// clang-format on

// What goes into IspFlags.
enum class IspByte { Template, ExhvIsp, DualMode };  // nothing; 1 for EXHV ISP; 16 in dual mode
// What goes into UsedLength: the index of the last word that isn't blank, or always the length.
enum class UsedWords { Tracked, Length };

struct Hex14OtpRow {
  const char* ChipName;
  const Hex14OtpMemory& memory;
  std::uint8_t idLow;         // the ID word's low byte
  std::uint8_t idHigh;        // the tested bits of its high byte
  std::uint8_t idHighMask;    // which bits are tested
  std::uint16_t sumMask;      // or-ed into the configuration word before it is summed
  std::uint16_t outputSet;    // bits set in the configuration word that goes out
  std::uint16_t outputClear;  // bits cleared in it first
  bool protectByte;           // ProtectFlags is 16 when bit 11 of the configuration word is 0
  IspByte isp;
  UsedWords used;
  ConverterCode idCode;  // returned for a wrong ID
};

// clang-format off
inline constexpr auto kHex14OtpTable = std::to_array<Hex14OtpRow>({
    {.ChipName = "QV8333", .memory = kOtp1019, .idLow = 0x01, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8334", .memory = kOtp1019, .idLow = 0x01, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8335", .memory = kOtp1019, .idLow = 0x01, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8370", .memory = kOtp1019, .idLow = 0x01, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8371", .memory = kOtp1019, .idLow = 0x01, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8372", .memory = kOtp1019, .idLow = 0x01, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8502", .memory = kOtp1019, .idLow = 0x01, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8503_2XX", .memory = kOtp1019, .idLow = 0x01, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8349", .memory = kOtp1020, .idLow = 0x01, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x203F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8348", .memory = kOtp1020, .idLow = 0x10, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8323", .memory = kOtp1020, .idLow = 0x11, .idHigh = 1, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8355", .memory = kOtp1020, .idLow = 0x11, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8350", .memory = kOtp1020, .idLow = 0x11, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8329", .memory = kOtp1020, .idLow = 0x12, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x203F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::DualMode,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8330", .memory = kOtp1020, .idLow = 0x12, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8327", .memory = kOtp1020, .idLow = 0x13, .idHigh = 1, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8356", .memory = kOtp1020, .idLow = 0x13, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8357", .memory = kOtp1020, .idLow = 0x13, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8358", .memory = kOtp1020, .idLow = 0x13, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8359", .memory = kOtp1020, .idLow = 0x13, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8365", .memory = kOtp1020, .idLow = 0x13, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8360", .memory = kOtp1020, .idLow = 0x37, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8325", .memory = kOtp1020, .idLow = 0x40, .idHigh = 0, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8326", .memory = kOtp1020, .idLow = 0x40, .idHigh = 0, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8324", .memory = kOtp1020, .idLow = 0x40, .idHigh = 1, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8351", .memory = kOtp1020, .idLow = 0x40, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8352", .memory = kOtp1020, .idLow = 0x40, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8353", .memory = kOtp1020, .idLow = 0x40, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8354", .memory = kOtp1020, .idLow = 0x40, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8328", .memory = kOtp1020, .idLow = 0x43, .idHigh = 1, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8361", .memory = kOtp1020, .idLow = 0x43, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8362", .memory = kOtp1020, .idLow = 0x43, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8363", .memory = kOtp1020, .idLow = 0x43, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8364", .memory = kOtp1020, .idLow = 0x43, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8332", .memory = kOtp1020, .idLow = 0x44, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8331", .memory = kOtp1020, .idLow = 0x47, .idHigh = 2, .idHighMask = 2,
     .sumMask = 0x233F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8342", .memory = kOtp2040, .idLow = 0x29, .idHigh = 0, .idHighMask = 3,
     .sumMask = 0x303F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8340", .memory = kOtp2040, .idLow = 0x29, .idHigh = 1, .idHighMask = 3,
     .sumMask = 0x303F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8341", .memory = kOtp2042, .idLow = 0x29, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x303F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8339", .memory = kOtp2042, .idLow = 0x29, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x303F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8337", .memory = kOtp2044, .idLow = 0x46, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8338", .memory = kOtp2044, .idLow = 0x46, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8343", .memory = kOtp2044, .idLow = 0x56, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x21FF, .outputSet = 0x1FF, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8366", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0x100, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8367", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0x100, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8373", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8503_5XX", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8503_8XX", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8374", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8375", .memory = kOtp2044Dual, .idLow = 0x50, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x231F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8347", .memory = kOtp4091, .idLow = 0x03, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8378", .memory = kOtp4091, .idLow = 0x03, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::ExhvIsp,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8336", .memory = kOtp4092, .idLow = 0x09, .idHigh = 1, .idHighMask = 3,
     .sumMask = 0x203F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Length, .idCode = kImageFailed},
    {.ChipName = "QV8344", .memory = kOtp4092DualFar, .idLow = 0x09, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x203F, .outputSet = 0x1F, .outputClear = 0, .protectByte = true, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8368", .memory = kOtp4092Dual, .idLow = 0x28, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x203F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8345", .memory = kOtp4092Dual, .idLow = 0x55, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0x20, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8346", .memory = kOtp4092Dual, .idLow = 0x55, .idHigh = 2, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0x20, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8376", .memory = kOtp4092Dual, .idLow = 0x55, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8377", .memory = kOtp4092Dual, .idLow = 0x55, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
    {.ChipName = "QV8501", .memory = kOtp4092Dual, .idLow = 0x55, .idHigh = 3, .idHighMask = 3,
     .sumMask = 0x201F, .outputSet = 0x1F, .outputClear = 0, .protectByte = false, .isp = IspByte::Template,
     .used = UsedWords::Tracked, .idCode = kWrongId},
});
// clang-format on

}  // namespace pyxis
