// Load File: from the file dialog to a writer that holds the job.
#pragma once

#include <cstdint>
#include <string>

#include "shell/ground/outcome.h"

namespace pyxis {

// The menu command. All results are in AppState, in the package files and in the writer; good means that both packages
// have arrived. Cancelled: NoFile, NotConfirmed; failed: NotConverted, FirmwareFailed, OptionNotArrived,
// DataNotArrived.
Outcome OnLoadFile();

// The file dialog filter of a row's FileExtension.
const char* FileFilter(const char* fileExtension);

}  // namespace pyxis
