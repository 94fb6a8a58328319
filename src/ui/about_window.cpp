#include "ui/about_window.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>

#include "shell/main_dialog.h"

namespace pyxis::ui {

namespace {
constexpr int kIconSize = 48;
}

AboutWindow::AboutWindow(QWidget* parent) : QDialog(parent) {
  setWindowTitle(QStringLiteral("About PyxisLoad"));
  auto* icon = new QLabel(this);
  icon->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
  auto* name = new QLabel(QStringLiteral("PyxisLoad"), this);
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setBold(true);
  name->setFont(large);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* words = new QVBoxLayout;
  words->addWidget(name);
  words->addWidget(new QLabel(QString::fromLatin1(kAboutVersion), this));
  auto* row = new QHBoxLayout;
  row->addWidget(icon);
  row->addLayout(words);
  auto* all = new QVBoxLayout(this);
  all->addLayout(row);
  all->addWidget(buttons);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace pyxis::ui
