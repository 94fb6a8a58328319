// The main dialog: its start-up, IC selection, menu rules, what the writer holds, exit.
#pragma once

#include <string>

namespace pyxis {

enum class MenuEntry {
  LoadFile, SaveAs, Exit, Device, UpdateFirmware, SerialNumberProgram, CheckNewVersion, CompareFile, SetProtect,
  ReadChipInfo, About
};

class CPyxisLoadDlg {
 public:
  CPyxisLoadDlg();
  ~CPyxisLoadDlg();

  void OnInitDialog();  // the start-up sequence; the transport has been opened before
  bool MenuEnabled(MenuEntry entry) const;
  void OnMenu(MenuEntry entry);
  // The system close command asks once; true when the window may close. Menu Exit asks, then issues it.
  bool OnClose();
  void OnExit();
  void OnMouseMove(int x, int y);  // client coordinates into pane 0
  bool DropMousePress() const;     // presses on the dialog itself are dropped during a transfer
};

inline constexpr char kAboutVersion[] = "Version 1.0.0 Build 007";

void OnDevice();
void RefreshFromWriter();
void ShowLinkStatus();
void ShowModeLabels();

}  // namespace pyxis
