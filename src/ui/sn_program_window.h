// The window of Serial Number Program: modal from the menu, or beside the main window after a Load File with serial
// numbers.
#pragma once

#include <QDialog>
#include <functional>

#include "ui/handler_gate.h"

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace pyxis {
class CSnProgramDlg;
}

namespace pyxis::ui {

class NumericEditField;

class SnProgramWindow : public QDialog {
 public:
  using Handler = std::function<void()>;
  // `run` runs each handler, or drops it. The dialog must outlive the window.
  SnProgramWindow(CSnProgramDlg& dialog, QWidget* parent, std::function<void(const Handler&)> run = Call);
  ~SnProgramWindow() override;

  void reject() override;  // Escape and the title bar count as "Close"

 private:
  static void Call(const Handler& handler) { handler(); }
  NumericEditField* AddField(QGridLayout& grid, int row, const char* caption);
  QPushButton* AddButton(QLayout& row, const char* caption, const Handler& pressed);
  void Press(const Handler& handler);
  void Sync();

  CSnProgramDlg& dialog_;
  std::function<void(const Handler&)> run_;
  HandlerGate presses_;
  QLineEdit* chip_;
  NumericEditField *start_, *end_, *startAddress_, *endAddress_, *ok_, *ng_, *total_;
  QPushButton *program_, *set_;
};

}  // namespace pyxis::ui
