#include "ui/about_window.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
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
  auto* grid = new QGridLayout(this);
  grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(name, 0, 1);
  grid->addWidget(new QLabel(QString::fromLatin1(kAboutVersion), this), 1, 1);
  grid->addWidget(buttons, 2, 0, 1, 2);
  grid->setHorizontalSpacing(16);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace pyxis::ui
