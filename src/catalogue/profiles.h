// What several ICs share, by name.
#pragma once

#include "catalogue/ic.h"

namespace pyxis {

inline constexpr Ticks T1{28, 7, 21, 8};
inline constexpr Ticks T2{7, 2, 5, 2};
inline constexpr Ticks T3{56, 14, 42, 16};
inline constexpr Ticks T4{75, 26, 49, 31};
inline constexpr Ticks T5{4, 1, 3, 1};
inline constexpr Ticks T6{56, 14, 42, 14};
inline constexpr Ticks T7{23, 5, 18, 6};
inline constexpr Ticks T8{55, 7, 48, 8};
inline constexpr Ticks T9{26, 4, 22, 4};
inline constexpr Ticks T10{110, 14, 96, 16};
inline constexpr Ticks T11{82, 10, 72, 12};

inline constexpr Masks M0{};
inline constexpr Masks M1{0x2000, 0x1000, 0xC00, 0x300, 0x80, 0x40, 0x20};
inline constexpr Masks M2{0x2000, 0x1000, 0xC00, 0x300, 0x80, 0x40};
inline constexpr Masks M3{0x8000, 0x4000, 0x2000, 0x1000, 0x200};
inline constexpr Masks M4{0x2000, 0xC00, 0x300, 0x80, 0x40};
inline constexpr Masks M5{0x2000, 0x1000, 0xC00, 0x80, 0x60};
inline constexpr Masks M6{0x2000, 0x1000, 0xC00, 0x200, 0x100, 0x80, 0x40, 0x20};
inline constexpr Masks M7{0x2000, 0x1000, 0xC00, 0x80, 0x40, 0x20};
inline constexpr Masks M8{0x8000, 0x4000, 0x3000, 0x800, 0x400, 0x200, 0xC0};
inline constexpr Masks M9{0x2000, 0x1000, 0x800, 0x400, 0x300, 0x80, 0x40, 0x20};
inline constexpr Masks M10{0x8000, 0x4000, 0x3000, 0x800, 0x400, 0xC0};
inline constexpr Masks M11{0x8000, 0x4000, 0x3000, 0x800, 0x400, 0x200, 0xC0, 0x20};
inline constexpr Masks M12{0x2000, 0x1000, 0x800, 0x80, 0x40, 0x20};
inline constexpr Masks M13{0x2000, 0x800, 0x80, 0x40};
inline constexpr Masks M14{0x2000, 0x400, 0x100, 0x80, 0x40, 0x20};
inline constexpr Masks M15{0x2000, 0x100};
inline constexpr Masks M16{0x2000, 0x400, 0x80, 0x40};
inline constexpr Masks M17{0x2000, 0x1000, 0x800, 0x300, 0x80, 0x40, 0x20};
inline constexpr Masks M18{0x2000, 0x1800, 0x400, 0x200};
inline constexpr Masks M19{0x2000, 0x1000, 0xC00, 0x200, 0x80, 0x40, 0x20};
inline constexpr Masks M20{0x2000, 0xC00, 0x300, 0x40};
inline constexpr Masks M21{0x2000, 0xC00, 0x80, 0x40};
inline constexpr Masks M22{0x2000, 0x1000, 0x80, 0x40};
inline constexpr Masks M23{0x2000, 0x1000, 0x800, 0x300, 0x80, 0x40};
inline constexpr Masks M24{0x2000, 0xC00, 0x200, 0x80, 0x40};
inline constexpr Masks M25{0x2000};

// Program files.
inline constexpr char kHex[] = ".hex";
inline constexpr char kHexOrBin[] = ".hexbin";
inline constexpr char kObj[] = ".obj";
inline constexpr char kOtp[] = ".otp";
inline constexpr char kEpm[] = ".epm";
inline constexpr char kVelmar[] = ".velmar";

inline constexpr FirmwareImage kCommonFirmware{"all.nce", 0};
// Images that several ICs run on, by their code.
inline constexpr FirmwareImage kFirmware1393{"QV4207.nce", 0x1393};
inline constexpr FirmwareImage kFirmware1645{"QVL09.nce", 0x1645};
inline constexpr FirmwareImage kFirmware1740{"QV8351.nce", 0x1740};
inline constexpr FirmwareImage kFirmware2705{"QV8301.nce", 0x2705};
inline constexpr FirmwareImage kFirmware2708{"QV8303.nce", 0x2708};
inline constexpr FirmwareImage kFirmware2712{"QV8330.nce", 0x2712};
inline constexpr FirmwareImage kFirmware2713{"QV8356.nce", 0x2713};
inline constexpr FirmwareImage kFirmware2729{"QV8339.nce", 0x2729};
inline constexpr FirmwareImage kFirmware2735{"QV8319.nce", 0x2735};
inline constexpr FirmwareImage kFirmware2738{"QV8309.nce", 0x2738};
inline constexpr FirmwareImage kFirmware2740{"QV8351.nce", 0x2740};
inline constexpr FirmwareImage kFirmware2743{"QV8361.nce", 0x2743};
inline constexpr FirmwareImage kFirmware2746{"QV8337.nce", 0x2746};
inline constexpr FirmwareImage kFirmware2750{"QV8366.nce", 0x2750};
inline constexpr FirmwareImage kFirmware2752{"QV8315.nce", 0x2752};
inline constexpr FirmwareImage kFirmware2755{"QV8345.nce", 0x2755};
inline constexpr FirmwareImage kFirmware2801{"QV8333.nce", 0x2801};
inline constexpr FirmwareImage kFirmware2802{"QV8312.nce", 0x2802};
inline constexpr FirmwareImage kFirmware2803{"QV8347.nce", 0x2803};
inline constexpr FirmwareImage kFirmware3703{"QV8120.nce", 0x3703};
inline constexpr FirmwareImage kFirmware3704{"QV8103.nce", 0x3704};
inline constexpr FirmwareImage kFirmware3706{"QV8121.nce", 0x3706};
inline constexpr FirmwareImage kFirmware3713{"QV8106.nce", 0x3713};
inline constexpr FirmwareImage kFirmware3714{"QV8101.nce", 0x3714};

// IC selection. A box that is left keeps the state that the series or the IC before gave it.
inline constexpr SelectionBoxes kBoxesLeft{BoxRule::Leave, BoxRule::Leave, BoxRule::Leave};
inline constexpr SelectionBoxes kSerialEnabled{BoxRule::Enable, BoxRule::Leave, BoxRule::Leave};
inline constexpr SelectionBoxes kSerialDisabled{BoxRule::Disable, BoxRule::Leave, BoxRule::Leave};
inline constexpr SelectionBoxes kBoxesEnabled{BoxRule::Enable, BoxRule::Enable, BoxRule::Enable};
inline constexpr SelectionBoxes kBoxesDisabled{BoxRule::Disable, BoxRule::Disable, BoxRule::Disable};

// Serial numbers.
inline constexpr SerialPlace kNoSerial{.endLimit = 0, .endMarkCounts = SnUnit::Bytes, .fixedAddress = kAnyAddress};
constexpr SerialPlace UpTo(std::uint32_t endLimit) {
  return {.endLimit = endLimit, .endMarkCounts = SnUnit::Bytes, .fixedAddress = kAnyAddress};
}
constexpr SerialPlace WordsUpTo(std::uint32_t endLimit) {
  return {.endLimit = endLimit, .endMarkCounts = SnUnit::Words, .fixedAddress = kAnyAddress};
}
constexpr SerialPlace FixedAt(std::uint32_t address, std::uint32_t endLimit) {
  return {.endLimit = endLimit, .endMarkCounts = SnUnit::Words, .fixedAddress = address};
}

// The menu Operation. An IC without Serial Number Program is given its serial numbers in IC selection, if it has any.
inline constexpr MenuEntries kAllEntries{.serialNumberProgram = true, .readChipInfo = true};
inline constexpr MenuEntries kNoSerialProgram{.serialNumberProgram = false, .readChipInfo = true};
inline constexpr MenuEntries kNoChipInfo{.serialNumberProgram = true, .readChipInfo = false};
inline constexpr MenuEntries kNeitherEntry{.serialNumberProgram = false, .readChipInfo = false};

}  // namespace pyxis
