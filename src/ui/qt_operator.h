// The operator at the screen: message boxes, file dialog, modal dialogs, cursor.
#pragma once

#include <QString>

#include "platform/operator.h"
#include "ui/animated_cursor.h"

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
  DialogEnd RunDialog(CReadChipInfoDlg& dialog) override;
  DialogEnd RunDialog(CDownloadInfoDlg& dialog) override;
  DialogEnd RunDialog(CGotoAddressDlg& dialog) override;
  DialogEnd RunDialog(CSnSetDlg& dialog) override;
  DialogEnd RunDialog(CSnProgramDlg& dialog) override;
  void RunAbout() override;

  CursorHandle LoadCursorFromFile(const std::string& path) override { return cursors_.Load(path); }
  CursorHandle SetCursor(CursorHandle cursor) override { return cursors_.Set(cursor); }

 private:
  QWidget* Parent() const;  // the window in front
  template <typename Window, typename Dialog>
  DialogEnd Run(Dialog& dialog, QWidget* parent);

  QWidget* main_ = nullptr;
  BusyCursors cursors_;
  QString lastFolder_;  // for the length of the run
};

// "A (*.a)|*.a|B (*.b)|*.b||" as Qt's filters.
QStringList QtFilters(const std::string& filter);

}  // namespace pyxis::ui
