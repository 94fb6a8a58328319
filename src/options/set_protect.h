// Set Protect: changes the protection of the job in the writer, without a new file.
#pragma once

namespace pyxis {

// The menu command.
void OnSetProtect();

}  // namespace pyxis
