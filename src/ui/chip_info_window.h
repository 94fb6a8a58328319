// The window of Read Chip Info.
#pragma once

#include "operations/chip_info.h"
#include "ui/dialog_mirror.h"
#include "ui/lines_window.h"

namespace pyxis {
class CReadChipInfoDlg;
}

namespace pyxis::ui {

class ChipInfoWindow : public LinesWindow {
 public:
  ChipInfoWindow(CReadChipInfoDlg& dialog, HandlerGate& gate, QWidget* parent);

 private:
  void Sync();
  CReadChipInfoDlg& dialog_;
  DialogMirror<CReadChipInfoDlg> mirror_{dialog_};
};

}  // namespace pyxis::ui
