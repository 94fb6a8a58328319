// The window of Serial Number Set.
#pragma once

#include <QDialog>
#include <array>

class QGridLayout;
class QRadioButton;

namespace pyxis {
class CSnSetDlg;
}

namespace pyxis::ui {

class NumericEditField;

class SnSetWindow : public QDialog {
 public:
  SnSetWindow(CSnSetDlg& dialog, QWidget* parent);
  ~SnSetWindow() override;

 private:
  NumericEditField* AddField(QGridLayout& grid, const char* caption, std::size_t limit,
                             void (CSnSetDlg::*changed)(const std::string&));
  void AddDirection(QGridLayout& grid);
  void Sync();

  CSnSetDlg& dialog_;
  NumericEditField *length_, *address_, *start_, *amount_;
  std::array<QRadioButton*, 2> directions_{};
};

}  // namespace pyxis::ui
