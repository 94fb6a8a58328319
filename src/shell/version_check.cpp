#include "shell/version_check.h"

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/update_agent.h"
#include "shell/main_controls.h"

namespace pyxis {

// The outer text, and in clientXmlstr the inner one with its angle brackets escaped. The inner one is for the update
// client: it has a line feed behind each element.
const char UpdateRequest[] =
    R"(<?xml version="1.0" encoding="utf-8"?>)"
    R"(<soap:Envelope xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance")"
    R"( xmlns:xsd="http://www.w3.org/2001/XMLSchema")"
    R"( xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/">)"
    R"(<soap:Body>)"
    R"(<GetNewFiles2 xmlns="urn:pyxisload:update">)"
    R"(<clientXmlstr>)"
    R"(&lt;?xml version="1.0" encoding="utf-8"?&gt;)"
    R"(&lt;root&gt;)"
    R"(&lt;oldFileInfo&gt;)"
    "&lt;progid&gt;KM48_EN&lt;/progid&gt;\n"
    "&lt;verno&gt;1.0.2&lt;/verno&gt;\n"
    "&lt;buildno&gt;034&lt;/buildno&gt;\n"
    "&lt;/oldFileInfo&gt;\n"
    "&lt;/root&gt;\n"
    R"(</clientXmlstr>)"
    R"(</GetNewFiles2>)"
    R"(</soap:Body>)"
    R"(</soap:Envelope>)";

void CheckNewVersion() {
  Operator& op = *TheMachine().op;
  MainView& view = *TheMachine().view;
  BeginBusyCursorFrom(CurrentDirectory() + kPathSeparator + "dinosaur.ani");
  view.EnableMainWindow(false);
  const std::int32_t result = TheMachine().update->CallUpdateAgent(UpdateRequest);
  view.EnableMainWindow(true);
  EndBusyCursor();
  if (result == kUpdateTakenCareOf) {
    if (op.Ask("Do you want to exit old version of PyxisLoad ?", "Select Exit ? ", MessageIcon::None))
      view.EndMainWindow();
  } else if (result == kVersionIsCurrent) {
    op.Tell("This is newer version .", kPlainCaption);
  }
}

}  // namespace pyxis
