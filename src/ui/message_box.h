// The program's message box: as wide as its text and its caption need.
#pragma once

#include <QMessageBox>

namespace pyxis::ui {

class MessageBox : public QMessageBox {
 public:
  MessageBox(Icon icon, const QString& caption, const QString& text, StandardButtons buttons, QWidget* parent);

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void GiveRoom();
};

}  // namespace pyxis::ui
