// The main dialog without its window: how it comes up, what its buttons and menu entries run, and how it ends.
#pragma once

#include "platform/device_events.h"
#include "shell/ground/main_controls.h"
#include "shell/menu_rules.h"

namespace pyxis {

// What the About dialog says.
inline constexpr char kAboutVersion[] = "Version 1.0.0 Build 007";

class CPyxisLoadDlg {
 public:
  // From the current directory and whatever the link reaches. Once, before the window shows.
  void OnInitDialog();
  // The window is gone: releases what the dialog owns.
  void OnDestroy();

  void OnCommand(MenuEntry entry);
  void OnButton(ControlId button);
  void OnDevice(const DeviceEvent& event);  // the writer, or something else, came or went

  // The mouse over the dialog itself, in client pixels.
  void OnMouseMove(int x, int y);
  // The prompt of the menu entry under the mouse; empty when there is none.
  void OnMenuPrompt(const std::string& prompt);
  // Whether a press of a mouse button on the dialog itself is dropped.
  bool DropsMousePress() const;

  // The system close command, also from the title bar: asks. True when the window may end.
  bool OnSysClose();

 private:
  void RunCommand(MenuEntry entry);
  void RunButton(ControlId button);
  void OnExit();
};

}  // namespace pyxis
