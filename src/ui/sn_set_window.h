// The window of Serial Number Set.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>

#include "serial/sn_set.h"
#include "ui/dialog_mirror.h"
#include "ui/handler_gate.h"

class QGridLayout;
class QRadioButton;

namespace pyxis {
class CSnSetDlg;
}

namespace pyxis::ui {

class NumericEditField;

class SnSetWindow : public QDialog {
 public:
  SnSetWindow(CSnSetDlg& dialog, HandlerGate& gate, QWidget* parent);

  void reject() override;  // not while the series is on its way

 private:
  NumericEditField* AddField(QGridLayout& grid, const char* caption, std::size_t limit,
                             std::function<void(const std::string&)> changed);
  void AddDirection(QGridLayout& grid);
  void Sync();

  CSnSetDlg& dialog_;
  DialogMirror<CSnSetDlg> mirror_{dialog_};
  HandlerGate& gate_;
  NumericEditField *length_, *address_, *start_, *amount_;
  std::array<QRadioButton*, 2> directions_{};
};

}  // namespace pyxis::ui
