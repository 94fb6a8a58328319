// Read: the contents of the chip in the socket, into a file and into the hex view.
#pragma once

#include <string>

#include "shell/ground/outcome.h"

namespace pyxis {

// In AppDir; binary, whatever its extension says.
std::string ReadDataPath();

// The button Read; tells the operator itself. A writer that holds no job of the selected IC first gets the IC's
// template as its option area; when that fails the read goes on and is told as any other, and the outcome names it.
// Failed: OptionNotArrived, OtherChip (the writer takes the chip for another IC still), NothingToRead, NotWritable.
// Good with OptionNotArrived: the writer knew the IC by a series that stands in the place of a job.
Outcome OnRead();

// The read proper, ReadSizeBytes less the words in front of DualStart. Failed: NothingToRead, and NotWritable for a
// result file that can't be created, both before the chip is asked and with nothing changed, or not in full, which
// leaves it empty. The transfers aren't looked at.
Outcome ReadChip();

}  // namespace pyxis
