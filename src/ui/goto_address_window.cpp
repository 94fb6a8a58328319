#include "ui/goto_address_window.h"

#include <QDialogButtonBox>
#include <QGridLayout>
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
  auto* grid = new QGridLayout(this);
  grid->addWidget(label, 0, 0);
  grid->addWidget(edit, 0, 1);
  grid->addWidget(new QLabel(QStringLiteral("(hex)"), this), 0, 2);
  grid->addWidget(buttons, 1, 0, 1, 3);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace pyxis::ui
