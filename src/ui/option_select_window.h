// The window of Option Select 1.
#pragma once

#include <QDialog>
#include <array>

#include "options/option_select.h"
#include "ui/dialog_mirror.h"

class QRadioButton;

namespace pyxis {
class COptionSelectDlg;
}

namespace pyxis::ui {

class OptionSelectWindow : public QDialog {
 public:
  OptionSelectWindow(COptionSelectDlg& dialog, QWidget* parent);

 private:
  void Sync();
  COptionSelectDlg& dialog_;
  DialogMirror<COptionSelectDlg> mirror_{dialog_};
  std::array<std::array<QRadioButton*, 2>, 3> buttons_{};
};

}  // namespace pyxis::ui
