#include "shell/version_check.h"

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/update_agent.h"
#include "shell/ground/busy_cursor.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

// The outer text, and in clientXmlstr the inner one with its angle brackets escaped. The inner one has a line feed
// behind each element.
const char UpdateRequest[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
    "<soap:Envelope xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\""
    " xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\">"
    "<soap:Body>"
    "<GetNewFiles2 xmlns=\"urn:pyxisload:update\">"
    "<clientXmlstr>"
    "&lt;?xml version=\"1.0\" encoding=\"utf-8\"?&gt;"
    "&lt;root&gt;"
    "&lt;oldFileInfo&gt;"
    "&lt;progid&gt;KM48_EN&lt;/progid&gt;\n"
    "&lt;verno&gt;1.0.2&lt;/verno&gt;\n"
    "&lt;buildno&gt;034&lt;/buildno&gt;\n"
    "&lt;/oldFileInfo&gt;\n"
    "&lt;/root&gt;\n"
    "</clientXmlstr>"
    "</GetNewFiles2>"
    "</soap:Body>"
    "</soap:Envelope>";

namespace {

// While it lives, the main window takes no input.
class MainWindowOff {
 public:
  MainWindowOff() { TheMachine().view->EnableMainWindow(false); }
  ~MainWindowOff() { TheMachine().view->EnableMainWindow(true); }
  MainWindowOff(const MainWindowOff&) = delete;
  MainWindowOff& operator=(const MainWindowOff&) = delete;
};

std::int32_t AskUpdateClient() {
  const BusyCursor busy(kLoadCursor, CurrentDirectory() + kPathSeparator);
  const MainWindowOff off;
  PumpPaint();  // the menu that it was chosen from is gone, and nothing paints while the client works
  return TheMachine().update->CallUpdateAgent(UpdateRequest);
}

}  // namespace

void CheckNewVersion() {
  Operator& op = *TheMachine().op;
  const std::int32_t result = AskUpdateClient();
  if (result == kUpdateTakenCareOf) {
    if (op.Ask("Do you want to exit old version of PyxisLoad ?", "Select Exit ? ", MessageIcon::None))
      TheMachine().view->EndMainWindow();
  } else if (result == kVersionIsCurrent) {
    op.Tell("This is newer version .", kPlainCaption);
  }
}

}  // namespace pyxis
