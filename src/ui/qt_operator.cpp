#include "ui/qt_operator.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>

#include "ui/about_window.h"
#include "ui/chip_info_window.h"
#include "ui/download_info_window.h"
#include "ui/goto_address_window.h"
#include "ui/ic_select_window.h"
#include "ui/option_select_window.h"
#include "ui/qt_text.h"
#include "ui/smart_option_window.h"
#include "ui/sn_program_window.h"
#include "ui/sn_set_window.h"

namespace pyxis::ui {

namespace {

constexpr int kMessageWidth = 40;  // characters

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

// Wide enough for its caption; the text goes out as it is.
void Dress(QMessageBox& box) {
  box.setTextFormat(Qt::PlainText);
  if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
    label->setMinimumWidth(kMessageWidth * box.fontMetrics().averageCharWidth());
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

template <typename Window, typename Dialog>
DialogEnd QtOperator::Run(Dialog& dialog, QWidget* parent) {
  const BusyCursors::Pause arrow(cursors_);
  Window window(dialog, parent);
  return window.exec() == QDialog::Accepted ? DialogEnd::Ok : DialogEnd::Cancel;
}

void QtOperator::Tell(const std::string& text, const std::string& caption, MessageIcon icon) {
  const BusyCursors::Pause arrow(cursors_);
  QMessageBox box(IconOf(icon), FromText(caption), FromText(text), QMessageBox::Ok, Parent());
  Dress(box);
  box.exec();
}

bool QtOperator::Ask(const std::string& text, const std::string& caption, MessageIcon icon) {
  const BusyCursors::Pause arrow(cursors_);
  QMessageBox box(IconOf(icon), FromText(caption), FromText(text), QMessageBox::Yes | QMessageBox::No, Parent());
  Dress(box);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

// Qt's own dialog: its filters don't look at letter case, whatever the desktop.
std::optional<std::string> QtOperator::ChooseFile(const std::string& filter) {
  const BusyCursors::Pause arrow(cursors_);
  QFileDialog dialog(Parent(), QStringLiteral("Open"), lastFolder_);
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters(QtFilters(filter));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString path = dialog.selectedFiles().constFirst();
  lastFolder_ = QFileInfo(path).absolutePath();
  return ToText(path);
}

DialogEnd QtOperator::RunDialog(CIcSelectDlg& dialog) { return Run<IcSelectWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(COptionSelectDlg& dialog) { return Run<OptionSelectWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(CReadChipInfoDlg& dialog) { return Run<ChipInfoWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(CDownloadInfoDlg& dialog) { return Run<DownloadInfoWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(CGotoAddressDlg& dialog) { return Run<GotoAddressWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(CSnSetDlg& dialog) { return Run<SnSetWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(CSnProgramDlg& dialog) { return Run<SnProgramWindow>(dialog, Parent()); }
DialogEnd QtOperator::RunDialog(CSmartOptionDlg& dialog) { return Run<SmartOptionWindow>(dialog, Parent()); }

void QtOperator::RunAbout() {
  const BusyCursors::Pause arrow(cursors_);
  AboutWindow(Parent()).exec();
}

}  // namespace pyxis::ui
