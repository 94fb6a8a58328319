// The operator at the screen: message boxes, file dialog, modal dialogs, cursor.
#pragma once

#include <QString>

#include "platform/operator.h"

class QDialog;
class QWidget;

namespace pyxis::ui {

class QtOperator : public Operator {
 public:
  void SetMainWindow(QWidget* window) { main_ = window; }

  void Tell(const std::string& text, const std::string& caption, MessageIcon icon) override;
  bool Ask(const std::string& text, const std::string& caption, MessageIcon icon) override;
  std::optional<std::string> ChooseFile(const std::string& filter) override;

  DialogEnd RunDialog(CIcSelectDlg& dialog) override;
  DialogEnd RunDialog(COptionSelectDlg& dialog) override;
  DialogEnd RunDialog(CSmartOptionDlg& dialog) override;
  DialogEnd RunDialog(CGotoAddressDlg& dialog) override;
  DialogEnd RunDialog(CSnSetDlg& dialog) override;
  DialogEnd RunDialog(CSnProgramDlg& dialog) override;
  void RunAbout() override;

 private:
  QWidget* Parent() const;  // the window in front

  QWidget* main_ = nullptr;
  QString lastFolder_;  // for the length of the run
};

// "A (*.a)|*.a|B (*.b)|*.b||" as Qt's filters.
QStringList QtFilters(const std::string& filter);

}  // namespace pyxis::ui
