// ICs that can't be selected: their names come from a writer's job, their codes from a script.
#pragma once

#include "catalogue/profiles.h"

namespace pyxis {

// The rest of a record of an IC that can't be selected.
constexpr Ic Unlisted(const UnlistedIc& ic) {
  return {.ChipName = ic.ChipName,
          .ChipCode = ic.ChipCode,
          .templateName = ic.templateName,
          .series = Series::None,
          .km48 = kNoRow,
          .km49 = kNoRow,
          .pins = kInLabel,
          .boxes = kBoxesLeft,
          .isp = Isp::None,
          .FileExtension = "",
          .firmware = {.file = nullptr, .code = 0},
          .ticks = {},
          .ReadSizeBytes = 0,
          .ReadSwapBytes = false,
          .comparison = ic.comparison,
          .options = OptionChoice::None,
          .masks = M0,
          .protection = ic.protection,
          .serial = ic.serial,
          .menus = ic.menus};
}

}  // namespace pyxis
