// The protection, mode and clock choices that lie in the writer's information block: how the panel shows them, and how
// Set Protect changes them.
#pragma once

namespace pyxis {

// Gives the panel the values stored in the block, for the ICs that keep them there.
void ShowFuseBitsOfBlock();

}  // namespace pyxis
