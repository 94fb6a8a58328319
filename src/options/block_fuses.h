// How the fuse panel shows the protection, mode and clock choices that lie in the writer's information block.
#pragma once

#include "catalogue/ic.h"

namespace pyxis {

// Gives the panel what the block holds in the place that `protection` names.
void ShowFuses(const Protection& protection);

// The same for the selected chip, when its panel takes its values from the block.
void ShowFuseBitsOfBlock();

}  // namespace pyxis
