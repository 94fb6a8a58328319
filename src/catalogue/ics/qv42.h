// The 4-bit ICs of the QV42 series, and those of QV43, which the catalogue has none of.
#pragma once

#include "catalogue/compare_kinds.h"
#include "catalogue/profiles.h"
#include "catalogue/protections.h"
#include "catalogue/unlisted.h"

namespace pyxis {

// clang-format off
inline constexpr Ic kQv42Ics[] = {
    {.ChipName = "QV4206", .ChipCode = 0x1393, .templateName = "QV4206",
     .series = Series::Qv42, .km48 = {"QV4206"}, .km49 = kNoRow, .pins = 64,
     .boxes = kSerialDisabled, .isp = Isp::None, .FileExtension = kEpm, .firmware = kFirmware1393,
     .ticks = T4, .ReadSizeBytes = 0x1001A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4201", .ChipCode = 0x1387, .templateName = "QV4201",
     .series = Series::Qv42, .km48 = {"QV4201"}, .km49 = kNoRow, .pins = 64,
     .boxes = kSerialEnabled, .isp = Isp::None, .FileExtension = kEpm, .firmware = {.file = "QV4201.nce", .code = 0x1387},
     .ticks = T4, .ReadSizeBytes = 0x401A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = FixedAt(0x1FFD, 0x2000), .menus = kNeitherEntry},
    {.ChipName = "QV4203", .ChipCode = 0x1388, .templateName = "QV4202",
     .series = Series::Qv42, .km48 = {"QV4203"}, .km49 = kNoRow, .pins = 64,
     .boxes = kSerialDisabled, .isp = Isp::None, .FileExtension = kEpm, .firmware = {.file = "QV4203.nce", .code = 0x1388},
     .ticks = T4, .ReadSizeBytes = 0x801A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4204", .ChipCode = 0x1392, .templateName = "QV4204",
     .series = Series::Qv42, .km48 = {"QV4204"}, .km49 = kNoRow, .pins = 64,
     .boxes = kSerialEnabled, .isp = Isp::None, .FileExtension = kEpm, .firmware = {.file = "QV4204.nce", .code = 0x1392},
     .ticks = T4, .ReadSizeBytes = 0x801A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = FixedAt(0x3FFD, 0x4000), .menus = kNeitherEntry},
    {.ChipName = "QV4205", .ChipCode = 0x1384, .templateName = "QV4205",
     .series = Series::Qv42, .km48 = {"QV4205"}, .km49 = kNoRow, .pins = 64,
     .boxes = kSerialDisabled, .isp = Isp::None, .FileExtension = kEpm, .firmware = {.file = "QV4205.nce", .code = 0x1384},
     .ticks = T4, .ReadSizeBytes = 0xC01A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4207", .ChipCode = 0x13931, .templateName = "QV4207",
     .series = Series::Qv42, .km48 = {"QV4207"}, .km49 = kNoRow, .pins = 64,
     .boxes = kSerialDisabled, .isp = Isp::None, .FileExtension = kEpm, .firmware = kFirmware1393,
     .ticks = T4, .ReadSizeBytes = 0x1001A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},

    // Not in the catalogue.
    Unlisted({.ChipName = "QV4301", .ChipCode = 0x1390, .templateName = "QV4301", .comparison = kCompareHex,
              .protection = kEpmProtection, .serial = kNoSerial, .menus = kNoSerialProgram}),
    Unlisted({.ChipName = "QV4302", .ChipCode = kNoCode, .templateName = "QV4302", .comparison = kCompareHex,
              .protection = kEpmProtectionOfFileAlone, .serial = kNoSerial, .menus = kNoChipInfo}),
};
// clang-format on

}  // namespace pyxis
