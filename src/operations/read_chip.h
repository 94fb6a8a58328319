// Read: the contents of the chip in the socket, into a file and into the hex view.
#pragma once

#include <string>

#include "shell/ground/outcome.h"

namespace pyxis {

// In AppDir; binary, whatever its extension says.
std::string ReadDataPath();

// The button Read; tells the operator itself. A writer that holds no job of the selected IC first gets the IC's
// template as its option area. Failed: NotWritable.
Outcome OnRead();

// The read proper, ReadSizeBytes less the words in front of DualStart. False when nothing would be
// left to read or the result file can't be created, both before the chip is asked and with nothing changed, and when it
// can't be written in full, which leaves it empty. The transfers aren't looked at.
bool ReadChip();

}  // namespace pyxis
