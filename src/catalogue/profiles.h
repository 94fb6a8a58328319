// What several ICs share, by name.
#pragma once

#include "catalogue/ic.h"

namespace pyxis {

inline constexpr Ticks T1{.autoRun = 28, .blank = 7, .program = 21, .verify = 8};
inline constexpr Ticks T2{.autoRun = 7, .blank = 2, .program = 5, .verify = 2};
inline constexpr Ticks T3{.autoRun = 56, .blank = 14, .program = 42, .verify = 16};
inline constexpr Ticks T4{.autoRun = 75, .blank = 26, .program = 49, .verify = 31};
inline constexpr Ticks T5{.autoRun = 4, .blank = 1, .program = 3, .verify = 1};
inline constexpr Ticks T6{.autoRun = 56, .blank = 14, .program = 42, .verify = 14};
inline constexpr Ticks T7{.autoRun = 23, .blank = 5, .program = 18, .verify = 6};
inline constexpr Ticks T8{.autoRun = 55, .blank = 7, .program = 48, .verify = 8};
inline constexpr Ticks T9{.autoRun = 26, .blank = 4, .program = 22, .verify = 4};
inline constexpr Ticks T10{.autoRun = 110, .blank = 14, .program = 96, .verify = 16};
inline constexpr Ticks T11{.autoRun = 82, .blank = 10, .program = 72, .verify = 12};

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

inline constexpr FirmwareImage kCommonFirmware{.file = "all.nce", .code = 0};
// Images that several ICs run on, by their code.
inline constexpr FirmwareImage kFirmware1393{.file = "QV4207.nce", .code = 0x1393};
inline constexpr FirmwareImage kFirmware1645{.file = "QVL09.nce", .code = 0x1645};
inline constexpr FirmwareImage kFirmware1740{.file = "QV8351.nce", .code = 0x1740};
inline constexpr FirmwareImage kFirmware2705{.file = "QV8301.nce", .code = 0x2705};
inline constexpr FirmwareImage kFirmware2708{.file = "QV8303.nce", .code = 0x2708};
inline constexpr FirmwareImage kFirmware2712{.file = "QV8330.nce", .code = 0x2712};
inline constexpr FirmwareImage kFirmware2713{.file = "QV8356.nce", .code = 0x2713};
inline constexpr FirmwareImage kFirmware2729{.file = "QV8339.nce", .code = 0x2729};
inline constexpr FirmwareImage kFirmware2735{.file = "QV8319.nce", .code = 0x2735};
inline constexpr FirmwareImage kFirmware2738{.file = "QV8309.nce", .code = 0x2738};
inline constexpr FirmwareImage kFirmware2740{.file = "QV8351.nce", .code = 0x2740};
inline constexpr FirmwareImage kFirmware2743{.file = "QV8361.nce", .code = 0x2743};
inline constexpr FirmwareImage kFirmware2746{.file = "QV8337.nce", .code = 0x2746};
inline constexpr FirmwareImage kFirmware2750{.file = "QV8366.nce", .code = 0x2750};
inline constexpr FirmwareImage kFirmware2752{.file = "QV8315.nce", .code = 0x2752};
inline constexpr FirmwareImage kFirmware2755{.file = "QV8345.nce", .code = 0x2755};
inline constexpr FirmwareImage kFirmware2801{.file = "QV8333.nce", .code = 0x2801};
inline constexpr FirmwareImage kFirmware2802{.file = "QV8312.nce", .code = 0x2802};
inline constexpr FirmwareImage kFirmware2803{.file = "QV8347.nce", .code = 0x2803};
inline constexpr FirmwareImage kFirmware3703{.file = "QV8120.nce", .code = 0x3703};
inline constexpr FirmwareImage kFirmware3704{.file = "QV8103.nce", .code = 0x3704};
inline constexpr FirmwareImage kFirmware3706{.file = "QV8121.nce", .code = 0x3706};
inline constexpr FirmwareImage kFirmware3713{.file = "QV8106.nce", .code = 0x3713};
inline constexpr FirmwareImage kFirmware3714{.file = "QV8101.nce", .code = 0x3714};

// IC selection. A box that is left keeps the state that the series or the IC before gave it.
inline constexpr SelectionBoxes kBoxesLeft{
    .displaySerial = BoxRule::Leave, .massProduction = BoxRule::Leave, .productionLimit = BoxRule::Leave};
inline constexpr SelectionBoxes kSerialEnabled{
    .displaySerial = BoxRule::Enable, .massProduction = BoxRule::Leave, .productionLimit = BoxRule::Leave};
inline constexpr SelectionBoxes kSerialDisabled{
    .displaySerial = BoxRule::Disable, .massProduction = BoxRule::Leave, .productionLimit = BoxRule::Leave};
inline constexpr SelectionBoxes kBoxesEnabled{
    .displaySerial = BoxRule::Enable, .massProduction = BoxRule::Enable, .productionLimit = BoxRule::Enable};
inline constexpr SelectionBoxes kBoxesDisabled{
    .displaySerial = BoxRule::Disable, .massProduction = BoxRule::Disable, .productionLimit = BoxRule::Disable};

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
