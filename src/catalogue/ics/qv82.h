// The multi-time ICs of the QV82 series.
#pragma once

#include "catalogue/compare_kinds.h"
#include "catalogue/profiles.h"
#include "catalogue/protections.h"
#include "catalogue/unlisted.h"

namespace pyxis {

// clang-format off
inline constexpr Ic kQv82Ics[] = {
    {.ChipName = "QV8202", .ChipCode = 0x2748, .templateName = "QV8202",
     .series = Series::Qv82, .km48 = {"QV8202"}, .km49 = {"QV8202_16", "QV8202_20"}, .pins = kInLabel,
     .boxes = kBoxesLeft, .isp = Isp::Exhv, .FileExtension = kHex, .firmware = kFirmware2735,
     .ticks = T1, .ReadSizeBytes = 0x2020, .ReadSwapBytes = true, .comparison = kCompareHex,
     .options = OptionChoice::Smart, .masks = M16, .protection = kMultiTimeProtection,
     .serial = UpTo(0x1000), .menus = kAllEntries},

    // Not in the catalogue.
    Unlisted({.ChipName = "QV8201", .ChipCode = 0x2722, .templateName = "QV8201", .comparison = kCompareHexZeroWords,
              .protection = kMultiTimeProtection, .serial = UpTo(0x1000), .menus = kAllEntries}),
};
// clang-format on

}  // namespace pyxis
