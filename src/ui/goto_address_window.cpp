#include "ui/goto_address_window.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>

#include "ui/qt_text.h"
#include "view/goto_address.h"

namespace pyxis::ui {

GotoAddressWindow::GotoAddressWindow(CGotoAddressDlg& dialog, QWidget* parent) : QDialog(parent) {
  setWindowTitle(QStringLiteral("Go to address"));
  auto* edit = new QLineEdit(FromText(dialog.text), this);
  edit->setMaxLength(static_cast<int>(CGotoAddressDlg::kMaxDigits));
  edit->selectAll();
  connect(edit, &QLineEdit::textChanged, this, [&dialog](const QString& text) { dialog.OnChange(ToText(text)); });
  auto* label = new QLabel(QStringLiteral("&Go to :"), this);
  label->setBuddy(edit);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(edit);
  row->addWidget(new QLabel(QStringLiteral("(hex)"), this));
  auto* all = new QVBoxLayout(this);
  all->addLayout(row);
  all->addWidget(buttons);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace pyxis::ui
