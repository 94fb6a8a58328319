// The one-time ICs of the QV85 series.
#pragma once

#include "catalogue/compare_kinds.h"
#include "catalogue/profiles.h"
#include "catalogue/protections.h"
#include "catalogue/unlisted.h"

namespace pyxis {

// clang-format off
inline constexpr Ic kQv85Ics[] = {
    {.ChipName = "QV8501", .ChipCode = 0x27552, .templateName = "QV8501",
     .series = Series::Qv85, .km48 = {"QV8501"}, .km49 = {"QV8501_24"}, .pins = kInLabel,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kHex, .firmware = kFirmware2755,
     .ticks = T1, .ReadSizeBytes = 0x2000, .ReadSwapBytes = true, .comparison = kCompareHex,
     .options = OptionChoice::Smart, .masks = M1, .protection = kOneTimeProtection,
     .serial = UpTo(0xFFC), .menus = kAllEntries},
    {.ChipName = "QV8502", .ChipCode = 0x28012, .templateName = "QV8502",
     .series = Series::Qv85, .km48 = {"QV8502"}, .km49 = {"QV8502_8"}, .pins = kInLabel,
     .boxes = kBoxesLeft, .isp = Isp::None, .FileExtension = kHex, .firmware = kFirmware2801,
     .ticks = T2, .ReadSizeBytes = 0x800, .ReadSwapBytes = true, .comparison = kCompareHex,
     .options = OptionChoice::Smart, .masks = M1, .protection = kOneTimeProtection,
     .serial = UpTo(0x3FB), .menus = kAllEntries},

    // Not in the catalogue.
    Unlisted({.ChipName = "QV8503_2XX", .ChipCode = 0x28013, .templateName = "QV8503_2XX", .comparison = kCompareHex,
              .protection = kOneTimeProtection, .serial = UpTo(0x3FB), .menus = kAllEntries}),
    Unlisted({.ChipName = "QV8503_5XX", .ChipCode = 0x27505, .templateName = "QV8503_5XX", .comparison = kCompareHex,
              .protection = kOneTimeProtection, .serial = UpTo(0x7FC), .menus = kAllEntries}),
    Unlisted({.ChipName = "QV8503_8XX", .ChipCode = 0x27506, .templateName = "QV8503_8XX", .comparison = kCompareHex,
              .protection = kOneTimeProtection, .serial = UpTo(0x7FC), .menus = kAllEntries}),
};
// clang-format on

}  // namespace pyxis
