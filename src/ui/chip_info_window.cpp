#include "ui/chip_info_window.h"

#include "operations/chip_info.h"

namespace pyxis::ui {

ChipInfoWindow::ChipInfoWindow(CReadChipInfoDlg& dialog, QWidget* parent)
    : LinesWindow(QStringLiteral("Read CHIP Information"), dialog.lines.size(), QStringLiteral("Read"), parent),
      dialog_(dialog) {
  Action = [this] { dialog_.OnRead(); };
  dialog_.Changed = [this] { Sync(); };
  Sync();
}

ChipInfoWindow::~ChipInfoWindow() {
  dialog_.Changed = [] {};
}

void ChipInfoWindow::Sync() { Show(dialog_.lines, dialog_.readEnabled, dialog_.cancelEnabled); }

}  // namespace pyxis::ui
