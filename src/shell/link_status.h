// What the status bar says of the link.
#pragma once

namespace pyxis {

void ShowLinkStatus();

}  // namespace pyxis
