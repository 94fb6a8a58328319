#include "shell/application.h"

#include "link/identification.h"

namespace pyxis {

void CPyxisLoadApp::InitInstance() { OpenTransport(); }

void CPyxisLoadApp::ExitInstance() { CloseTransport(); }

}  // namespace pyxis
