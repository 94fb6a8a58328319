// IC selection: the menu command Device and what follows the dialog.
#pragma once

namespace pyxis {

void OnDevice();

}  // namespace pyxis
