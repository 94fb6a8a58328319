// Check new version.
#pragma once

namespace pyxis {

void CheckNewVersion();

}  // namespace pyxis
