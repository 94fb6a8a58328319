// Writer Test: the voltages of the writer's own boards.
#pragma once

#include "shell/ground/outcome.h"

namespace pyxis {

// The button Writer Test: asks, measures, and lists Ok or Fail for each test in the buffer area (ReadyText). The chip
// socket isn't involved. Which tests there are depends on HwFolder.
// Cancelled: NotConfirmed; failed: OutOfRange.
Outcome OnWriterTest();

}  // namespace pyxis
