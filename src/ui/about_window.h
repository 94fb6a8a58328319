// The About dialog.
#pragma once

#include <QDialog>

namespace pyxis::ui {

class AboutWindow : public QDialog {
 public:
  explicit AboutWindow(QWidget* parent);
};

}  // namespace pyxis::ui
