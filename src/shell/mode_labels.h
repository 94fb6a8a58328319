// The four mode labels of the main window.
#pragma once

namespace pyxis {

// Shows or hides each by its flag: EXHV ISP, ISP, mass production, production limit. Only the value 1 counts as set.
void ShowModeLabels();

}  // namespace pyxis
