// IC selection: the menu command Device and what follows the dialog.
#pragma once

#include "shell/ground/outcome.h"

namespace pyxis {

// Good when an IC has been taken. Refused: OtherModel, with the operator told. Cancelled: the dialog was.
Outcome OnDevice();

}  // namespace pyxis
