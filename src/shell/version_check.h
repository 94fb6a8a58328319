// The menu command Check new version.
#pragma once

namespace pyxis {

// What goes to the update service: a SOAP 1.1 request that names this program and its version.
extern const char UpdateRequest[];

// Blocks until the update client has finished; the main window is disabled meanwhile.
void CheckNewVersion();

}  // namespace pyxis
