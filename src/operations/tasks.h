// Auto, Blank check, Program, Verify.
#pragma once

#include "shell/ground/outcome.h"

namespace pyxis {

// The buttons: each tells the operator how it ended. Refused: OtherChip, NeedsReload, NothingLoaded, LimitReached;
// cancelled: NotConfirmed; failed: VerdictFailed.
Outcome OnAuto();
Outcome OnBlankCheck();
Outcome OnProgram();
Outcome OnVerify();

}  // namespace pyxis
