// The 4-bit ICs of the QV41 series.
#pragma once

#include "catalogue/compare_kinds.h"
#include "catalogue/profiles.h"
#include "catalogue/protections.h"
#include "catalogue/unlisted.h"

namespace pyxis {

// clang-format off
inline constexpr Ic kQv41Ics[] = {
    {.ChipName = "QV4101", .ChipCode = 0x1382, .templateName = "QV4101",
     .series = Series::Qv41, .km48 = {"QV4101"}, .km49 = kNoRow, .pins = 28,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kEpm, .firmware = {.file = "QV4101.nce", .code = 0x1382},
     .ticks = T4, .ReadSizeBytes = 0x87FC, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtectionOfFileAlone,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4103", .ChipCode = 0x1397, .templateName = "QV4103",
     .series = Series::Qv41, .km48 = {"QV4103"}, .km49 = kNoRow, .pins = 28,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kOtp, .firmware = kCommonFirmware,
     .ticks = T7, .ReadSizeBytes = 0x32E0, .ReadSwapBytes = true, .comparison = kCompareOtpWords,
     .options = OptionChoice::Smart, .masks = M0, .protection = kLowByteProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4105", .ChipCode = 0x1395, .templateName = "QV4105",
     .series = Series::Qv41, .km48 = {"QV4105"}, .km49 = kNoRow, .pins = 28,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kOtp, .firmware = {.file = "QV4105.nce", .code = 0x1395},
     .ticks = T9, .ReadSizeBytes = 0x1FFF, .ReadSwapBytes = true, .comparison = kCompareOtpByte,
     .options = OptionChoice::UnprotectAlone, .masks = M0, .protection = kHighByteProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4106", .ChipCode = 0x1396, .templateName = "QV4106",
     .series = Series::Qv41, .km48 = {"QV4106"}, .km49 = kNoRow, .pins = 28,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kOtp, .firmware = kCommonFirmware,
     .ticks = T7, .ReadSizeBytes = 0x32E0, .ReadSwapBytes = true, .comparison = kCompareOtpWords,
     .options = OptionChoice::UnprotectAlone, .masks = M0, .protection = kLowByteProtection,
     .serial = kNoSerial, .menus = kNeitherEntry},
    {.ChipName = "QV4107", .ChipCode = 0x1385, .templateName = "QV4107",
     .series = Series::Qv41, .km48 = {"QV4107"}, .km49 = kNoRow, .pins = 28,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kEpm, .firmware = {.file = "QV4107.nce", .code = 0x1385},
     .ticks = T4, .ReadSizeBytes = 0x201A, .ReadSwapBytes = true, .comparison = kCompareEpm,
     .options = OptionChoice::None, .masks = M0, .protection = kEpmProtection,
     .serial = WordsUpTo(0x1000), .menus = kNoChipInfo},

    // Not in the catalogue.
    Unlisted({.ChipName = "QV4102", .ChipCode = kNoCode, .templateName = "QV4102", .comparison = kCompareHex,
              .protection = kEpmProtection, .serial = kNoSerial, .menus = kAllEntries}),
    Unlisted({.ChipName = "QV4104", .ChipCode = 0x1357, .templateName = "QV4104", .comparison = kCompareHex,
              .protection = kEpmProtectionByClear, .serial = kNoSerial, .menus = kNoChipInfo}),
};
// clang-format on

}  // namespace pyxis
