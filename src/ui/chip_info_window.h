// The window of Read Chip Info.
#pragma once

#include "ui/lines_window.h"

namespace pyxis {
class CReadChipInfoDlg;
}

namespace pyxis::ui {

class ChipInfoWindow : public LinesWindow {
 public:
  ChipInfoWindow(CReadChipInfoDlg& dialog, QWidget* parent);
  ~ChipInfoWindow() override;

 private:
  void Sync();
  CReadChipInfoDlg& dialog_;
};

}  // namespace pyxis::ui
