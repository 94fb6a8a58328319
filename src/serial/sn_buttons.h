// What serial number mode does to the main window's task buttons.
#pragma once

namespace pyxis {

// Load File's last step: the four task buttons are off while SnMode is set and on while it isn't.
void SwitchTaskButtonsBySnMode();

}  // namespace pyxis
