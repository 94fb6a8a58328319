#include "ui/chip_info_window.h"

#include "operations/chip_info.h"

namespace pyxis::ui {

ChipInfoWindow::ChipInfoWindow(CReadChipInfoDlg& dialog, HandlerGate& gate, QWidget* parent)
    : LinesWindow(QStringLiteral("Read CHIP Information"), dialog.lines.size(), QStringLiteral("Read"), gate, parent),
      dialog_(dialog) {
  Action = [this] { dialog_.OnRead(); };
  mirror_.Show([this] { Sync(); });
}

void ChipInfoWindow::Sync() { Show(dialog_.lines, dialog_.readEnabled, dialog_.cancelEnabled); }

}  // namespace pyxis::ui
