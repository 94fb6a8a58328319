// The window of Go to address.
#pragma once

#include <QDialog>

namespace pyxis {
class CGotoAddressDlg;
}

namespace pyxis::ui {

class GotoAddressWindow : public QDialog {
 public:
  GotoAddressWindow(CGotoAddressDlg& dialog, QWidget* parent);
};

}  // namespace pyxis::ui
