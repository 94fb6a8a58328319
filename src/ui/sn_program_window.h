// The window of Serial Number Program: modal from the menu, or beside the main window after a Load File with serial
// numbers.
#pragma once

#include <QDialog>
#include <functional>

#include "serial/sn_run.h"
#include "ui/dialog_mirror.h"
#include "ui/handler_gate.h"

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace pyxis {
class CSnProgramDlg;
}

namespace pyxis::ui {

class NumericEditField;
class VerdictLabel;

class SnProgramWindow : public QDialog {
 public:
  // The dialog must outlive the window.
  SnProgramWindow(CSnProgramDlg& dialog, HandlerGate& gate, QWidget* parent);

  void ShowVerdict();
  void reject() override;  // Escape and the title bar count as "Close"

 private:
  using Handler = std::function<void()>;
  NumericEditField* AddField(QGridLayout& grid, int row, const char* caption);
  QPushButton* AddButton(QLayout& row, const char* caption, const Handler& pressed);
  void Sync();

  CSnProgramDlg& dialog_;
  DialogMirror<CSnProgramDlg> mirror_{dialog_};
  HandlerGate& gate_;
  QLineEdit* chip_;
  VerdictLabel* verdict_;
  NumericEditField *start_, *end_, *startAddress_, *endAddress_, *ok_, *ng_, *total_;
  QPushButton *program_, *set_;
};

}  // namespace pyxis::ui
