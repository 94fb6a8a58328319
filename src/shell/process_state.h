// Everything that lives outside a function: the process-wide records and the machine's bodies.
#pragma once

namespace pyxis {

// All of it back to its start values, as in a fresh process.
void ResetProcessState();

}  // namespace pyxis
