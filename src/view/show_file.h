// Shows a file in the hex view.
#pragma once

#include <string>

namespace pyxis {

// Empty path: the view's area is painted white, its buffer stays. Otherwise the view takes the whole file; a file that
// can't be opened changes nothing.
void ShowFile(const std::string& path);

}  // namespace pyxis
