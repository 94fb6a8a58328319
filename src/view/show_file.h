// Shows a file in the hex view.
#pragma once

#include <string>

namespace pyxis {

// Empty path: the view's area is painted white, its buffer stays. Otherwise the view takes the whole file; a file that
// can't be opened changes nothing.
void ShowFile(const std::string& path);

// No file is shown, and none is the loaded one; the main window's field goes on naming it.
void BlankLoadedFile();
// No file is loaded any more: neither shown nor named.
void ForgetLoadedFile();

}  // namespace pyxis
