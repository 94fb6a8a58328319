// The operator at the screen: message boxes, file dialog, modal dialogs, cursor.
#pragma once

#include <QString>
#include <map>
#include <utility>

#include "platform/operator.h"
#include "ui/animated_cursor.h"
#include "ui/handler_gate.h"

class QWidget;

namespace pyxis::ui {

class MessageBox;

class QtOperator : public Operator {
 public:
  void SetMainWindow(QWidget* window) { main_ = window; }
  HandlerGate& Gate() { return gate_; }

  void Tell(const std::string& text, const std::string& caption, MessageIcon icon) override;
  bool Ask(const std::string& text, const std::string& caption, MessageIcon icon) override;
  std::optional<std::string> ChooseFile(const FileQuestion& question) override;

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
  void Alarm() override;

 private:
  QWidget* Parent() const;  // the window in front
  // Runs a message box; what was typed before it can be read doesn't reach it.
  int Show(MessageBox& box);
  // Runs a dialog's window, made from these arguments.
  template <typename Window, typename... Arguments>
  DialogEnd Run(Arguments&&... arguments);

  HandlerGate gate_;
  QWidget* main_ = nullptr;
  BusyCursors cursors_;
  std::map<std::pair<FileKind, std::string>, QString> lastFolders_;  // for the length of the run
};

// "A (*.a)|*.a|B (*.b)|*.b||" as Qt's filters.
QStringList QtFilters(const std::string& filter);

}  // namespace pyxis::ui
