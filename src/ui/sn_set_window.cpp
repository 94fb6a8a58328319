#include "ui/sn_set_window.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "serial/sn_set.h"
#include "ui/numeric_edit_field.h"

namespace pyxis::ui {

SnSetWindow::SnSetWindow(CSnSetDlg& dialog, HandlerGate& gate, QWidget* parent)
    : QDialog(parent), dialog_(dialog), gate_(gate) {
  setWindowTitle(QStringLiteral("Serial Number Set"));
  auto* all = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  length_ = AddField(*grid, "S/N &Length [Hex]:", CSnSetDlg::kLengthLimit,
                     [this](const std::string& text) { dialog_.OnLengthChange(text); });
  address_ = AddField(*grid, "S/N Start &Address (Hex) :", CSnSetDlg::kAddressLimit,
                      [this](const std::string& text) { dialog_.OnAddressChange(text); });
  start_ = AddField(*grid, "&Start Serial NO (Hex) : ", CSnSetDlg::kNumberLimit,
                    [this](const std::string& text) { dialog_.OnStartChange(text); });
  amount_ = AddField(*grid, "S/N A&mount (Hex) : ", CSnSetDlg::kNumberLimit,
                     [this](const std::string& text) { dialog_.OnAmountChange(text); });
  AddDirection(*grid);
  all->addLayout(grid);
  auto* buttons = new QDialogButtonBox(this);
  auto* load = buttons->addButton(QStringLiteral("L&oad"), QDialogButtonBox::AcceptRole);
  load->setDefault(true);
  auto* cancel = buttons->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
  connect(load, &QPushButton::clicked, this, [this] {
    gate_.Run([this] { dialog_.OnLoad(); });
    if (dialog_.ended) accept();
  });
  connect(cancel, &QPushButton::clicked, this, &SnSetWindow::reject);
  all->addWidget(buttons);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  mirror_.Show([this] { Sync(); });
  length_->selectAll();
}

NumericEditField* SnSetWindow::AddField(QGridLayout& grid, const char* caption, std::size_t limit,
                                        std::function<void(const std::string&)> changed) {
  auto* field = new NumericEditField(limit, this);
  field->TextEdited = std::move(changed);
  auto* label = new QLabel(QString::fromLatin1(caption), this);
  label->setBuddy(field);
  const int row = grid.rowCount();
  grid.addWidget(label, row, 0);
  grid.addWidget(field, row, 1, Qt::AlignLeft);
  return field;
}

void SnSetWindow::AddDirection(QGridLayout& grid) {
  constexpr const char* kCaptions[] = {"Lo&w Byte", "&Hight Byte"};
  auto* buttons = new QHBoxLayout;
  for (int i = 0; i < 2; ++i) {
    auto*& button = directions_[static_cast<std::size_t>(i)];
    button = new QRadioButton(QString::fromLatin1(kCaptions[i]), this);
    connect(button, &QRadioButton::clicked, this, [this, i] { dialog_.OnDirection(i); });
    buttons->addWidget(button);
  }
  buttons->addStretch();
  const int row = grid.rowCount();
  grid.addWidget(new QLabel(QStringLiteral("Direction (MSB in) : "), this), row, 0);
  grid.addLayout(buttons, row, 1);
}

void SnSetWindow::reject() {
  if (!gate_.Busy()) QDialog::reject();
}

void SnSetWindow::Sync() {
  length_->Show(dialog_.lengthText);
  address_->Show(dialog_.addressText);
  start_->Show(dialog_.startText);
  amount_->Show(dialog_.amountText);
  directions_[dialog_.direction == 0 ? 0 : 1]->setChecked(true);
}

}  // namespace pyxis::ui
