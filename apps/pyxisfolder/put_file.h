#pragma once

#include <filesystem>

#include "pyxisfolder/folder.h"

namespace pyxis::folder {

// Makes the folders above the file as well. False, with a line on standard error, when that fails.
bool PutFile(const std::filesystem::path& path, const Bytes& bytes);

}  // namespace pyxis::folder
