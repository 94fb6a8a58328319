// Set Protect: changes the protection of the job in the writer, without a new file.
#pragma once

#include "shell/ground/outcome.h"

namespace pyxis {

// The menu command.
// Refused: OtherChip; cancelled: None; failed: NotWritable, OptionNotArrived. A failed transfer isn't told.
Outcome OnSetProtect();

}  // namespace pyxis
