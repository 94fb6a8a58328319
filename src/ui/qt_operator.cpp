#include "ui/qt_operator.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include "platform/files.h"
#include "ui/about_window.h"
#include "ui/chip_info_window.h"
#include "ui/download_info_window.h"
#include "ui/goto_address_window.h"
#include "ui/ic_select_window.h"
#include "ui/message_box.h"
#include "ui/option_select_window.h"
#include "ui/qt_text.h"
#include "ui/smart_option_window.h"
#include "ui/sn_program_window.h"
#include "ui/sn_set_window.h"

namespace pyxis::ui {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Warning:
      return QMessageBox::Warning;
    case MessageIcon::Stop:
      return QMessageBox::Critical;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

QStringList QtFilters(const std::string& filter) {
  const QStringList parts = FromText(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) filters.append(parts[i]);  // the caption names its pattern
  return filters;
}

QWidget* QtOperator::Parent() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : main_;
}

template <typename Window, typename... Arguments>
DialogEnd QtOperator::Run(Arguments&&... arguments) {
  const BusyCursors::Pause arrow(cursors_);
  const HandlerGate::Open open(gate_);
  Window window(std::forward<Arguments>(arguments)..., Parent());
  return window.exec() == QDialog::Accepted ? DialogEnd::Ok : DialogEnd::Cancel;
}

int QtOperator::Show(MessageBox& box) {
  const BusyCursors::Pause arrow(cursors_);
  if (gate_.Busy()) gate_.Input().Discard();
  gate_.Input().GuardBox(box);
  return box.exec();
}

void QtOperator::Tell(const std::string& text, const std::string& caption, MessageIcon icon) {
  MessageBox box(IconOf(icon), FromText(caption), FromText(text), QMessageBox::Ok, Parent());
  Show(box);
}

bool QtOperator::Ask(const std::string& text, const std::string& caption, MessageIcon icon) {
  MessageBox box(IconOf(icon), FromText(caption), FromText(text), QMessageBox::Yes | QMessageBox::No, Parent());
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return Show(box) == QMessageBox::Yes;
}

// Qt's own dialog: its filters don't look at letter case, whatever the desktop.
std::optional<std::string> QtOperator::ChooseFile(const FileQuestion& question) {
  const BusyCursors::Pause arrow(cursors_);
  const HandlerGate::Open open(gate_);
  QString& folder = lastFolders_[{question.kind, question.folder}];
  if (folder.isEmpty()) folder = FromText(question.folder.empty() ? CurrentDirectory() : ResolvePath(question.folder));
  QFileDialog dialog(Parent(), QStringLiteral("Open"), folder);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters(QtFilters(question.filter));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString path = dialog.selectedFiles().constFirst();
  folder = QFileInfo(path).absolutePath();
  return ToText(path);
}

DialogEnd QtOperator::RunDialog(CIcSelectDlg& dialog) { return Run<IcSelectWindow>(dialog); }
DialogEnd QtOperator::RunDialog(COptionSelectDlg& dialog) { return Run<OptionSelectWindow>(dialog); }
DialogEnd QtOperator::RunDialog(CReadChipInfoDlg& dialog) { return Run<ChipInfoWindow>(dialog, gate_); }
DialogEnd QtOperator::RunDialog(CDownloadInfoDlg& dialog) { return Run<DownloadInfoWindow>(dialog, gate_); }
DialogEnd QtOperator::RunDialog(CGotoAddressDlg& dialog) { return Run<GotoAddressWindow>(dialog); }
DialogEnd QtOperator::RunDialog(CSnSetDlg& dialog) { return Run<SnSetWindow>(dialog, gate_); }
DialogEnd QtOperator::RunDialog(CSnProgramDlg& dialog) { return Run<SnProgramWindow>(dialog, gate_); }
DialogEnd QtOperator::RunDialog(CSmartOptionDlg& dialog) { return Run<SmartOptionWindow>(dialog); }
void QtOperator::RunAbout() { Run<AboutWindow>(); }

void QtOperator::Alarm() { QApplication::beep(); }

}  // namespace pyxis::ui
