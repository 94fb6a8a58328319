#include "ui/sn_program_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "intake/package_files.h"
#include "serial/sn_run.h"
#include "ui/numeric_edit_field.h"
#include "ui/qt_text.h"
#include "ui/verdict_label.h"

namespace pyxis::ui {

namespace {

constexpr std::size_t kDigits = 2 * kSerialBytes + 1;  // one past the last serial of the longest series

void AddRow(QGridLayout& grid, int row, const char* caption, QLineEdit* field) {
  field->setEnabled(false);
  auto* label = new QLabel(QString::fromLatin1(caption), field->parentWidget());
  label->setBuddy(field);
  grid.addWidget(label, row, 0);
  grid.addWidget(field, row, 1);
}

}  // namespace

SnProgramWindow::SnProgramWindow(CSnProgramDlg& dialog, HandlerGate& gate, QWidget* parent)
    : QDialog(parent), dialog_(dialog), gate_(gate) {
  setWindowTitle(QStringLiteral("Serial Number Program"));
  auto* all = new QVBoxLayout(this);
  auto* series = new QGridLayout;
  chip_ = new QLineEdit(this);
  QPalette readable = chip_->palette();  // it only shows, but it has to be seen
  readable.setColor(QPalette::Disabled, QPalette::Text, readable.color(QPalette::Active, QPalette::Text));
  chip_->setPalette(readable);
  AddRow(*series, 0, "Chip Type :  ", chip_);
  start_ = AddField(*series, 1, "Start Serial NO[Hex] : ");
  end_ = AddField(*series, 2, "End Serial NO[Hex] : ");
  startAddress_ = AddField(*series, 3, "S/N Start Address[Hex] : ");
  endAddress_ = AddField(*series, 4, "S/N End Address[Hex] : ");
  all->addLayout(series);
  auto* counter = new QGroupBox(QStringLiteral("  Counter  "), this);
  auto* counters = new QGridLayout(counter);
  ok_ = AddField(*counters, 0, "OK (Hex) : ");
  ng_ = AddField(*counters, 1, "NG (Hex) : ");
  total_ = AddField(*counters, 2, "Total (Hex) : ");
  all->addWidget(counter);
  auto* buttons = new QHBoxLayout;
  program_ = AddButton(*buttons, "S/N &Program", [this] { dialog_.OnSnProgram(); });
  program_->setDefault(true);
  set_ = AddButton(*buttons, "S/N &SET", [this] { dialog_.OnSnSet(); });
  AddButton(*buttons, "&Reset Count", [this] { dialog_.OnResetCount(); });
  auto* close = new QPushButton(QStringLiteral("&Close"), this);
  close->setAutoDefault(false);
  connect(close, &QPushButton::clicked, this, &SnProgramWindow::reject);
  buttons->addWidget(close);
  all->addLayout(buttons);
  verdict_ = new VerdictLabel(this);
  all->addWidget(verdict_);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  mirror_.Show([this] { Sync(); });
}

NumericEditField* SnProgramWindow::AddField(QGridLayout& grid, int row, const char* caption) {
  auto* field = new NumericEditField(kDigits, this);
  AddRow(grid, row, caption, field);
  return field;
}

// Only the default button answers Enter.
QPushButton* SnProgramWindow::AddButton(QLayout& row, const char* caption, const Handler& pressed) {
  auto* button = new QPushButton(QString::fromLatin1(caption), this);
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, [this, pressed] { gate_.Run(pressed); });
  row.addWidget(button);
  return button;
}

void SnProgramWindow::reject() {
  if (gate_.Busy()) return;
  gate_.Run([this] { dialog_.OnClose(); });
  QDialog::reject();
}

void SnProgramWindow::ShowVerdict() { verdict_->Sync(); }

void SnProgramWindow::Sync() {
  ShowVerdict();
  chip_->setText(FromText(dialog_.chipText));
  start_->Show(dialog_.startText);
  end_->Show(dialog_.endText);
  startAddress_->Show(dialog_.startAddressText);
  endAddress_->Show(dialog_.endAddressText);
  ok_->Show(dialog_.okText);
  ng_->Show(dialog_.ngText);
  total_->Show(dialog_.totalText);
  const bool runEnds = program_->hasFocus() && !dialog_.snProgramEnabled;
  program_->setEnabled(dialog_.snProgramEnabled);
  if (runEnds) setFocus();  // not to a neighbour, which the next Space would press
  set_->setEnabled(dialog_.snSetEnabled);
}

}  // namespace pyxis::ui
