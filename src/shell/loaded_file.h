// The file that is loaded and shown: the job's image, or what Read has written.
#pragma once

namespace pyxis {

// No file is shown, and none is the loaded one; the main window's field goes on naming it.
void BlankLoadedFile();
// No file is loaded any more: neither shown nor named.
void ForgetLoadedFile();

}  // namespace pyxis
