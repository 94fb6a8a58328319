// Load File: from the file dialog to a writer that holds the job.
#pragma once

#include <cstdint>
#include <string>

namespace pyxis {

// The menu command. All results are in AppState, in the package files and in the writer.
void OnLoadFile();

// The file dialog filter of a row's FileExtension.
const char* FileFilter(const char* fileExtension);

}  // namespace pyxis
