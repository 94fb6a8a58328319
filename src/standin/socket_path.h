// Where a stand-in writer that runs as a process is reached.
#pragma once

#include <string>

namespace pyxis::standin {

// PYXISWRITER_SOCKET of the environment, else pyxiswriter.sock in the user's run-time directory, else in /tmp.
std::string SocketPath();

}  // namespace pyxis::standin
