#include "shell/link_status.h"

#include <cstring>

#include "link/identification.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/usb_host.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {
// A known writer's identity without its version ending.
constexpr std::size_t kShownIdentity = 21;
}  // namespace

void ShowLinkStatus() {
  CProgStatusBar& bar = TheMainControls().statusBar;
  bar.pane1.assign(1, ' ');  // until the writer has answered
  TheMachine().view->ControlsChanged();
  std::array<char, kIdentitySize + 1> identity;
  ReadIdentityText(identity);
  bar.connectedIcon = TheAppState().writer.WriterConnected;
  bar.pane1 = bar.connectedIcon ? std::string(identity.data(), strnlen(identity.data(), kShownIdentity))
                                : std::string(kUsbNotConnected);
  bar.missingRight = bar.connectedIcon ? std::string() : TheMachine().usb->MissingRight();
  TheMachine().view->ControlsChanged();
}

}  // namespace pyxis
