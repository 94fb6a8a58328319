// Read: the contents of the chip in the socket, into a file and into the hex view.
#pragma once

#include <string>

#include "shell/ground/outcome.h"

namespace pyxis {

// In AppDir; binary, whatever its extension says.
std::string ReadDataPath();

// The button Read; tells the operator itself; failed: NotWritable. A writer that holds no job of the selected IC first gets the IC's template
// as its option area.
Outcome OnRead();

// The read proper, ReadSizeBytes less the words in front of DualStart. False when the result file can't be written, which
// leaves everything else as it was, or when nothing would be left to read. The transfers aren't looked at.
bool ReadChip();

}  // namespace pyxis
