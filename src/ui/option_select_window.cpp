#include "ui/option_select_window.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>

#include "options/option_select.h"

namespace pyxis::ui {

OptionSelectWindow::OptionSelectWindow(COptionSelectDlg& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  setWindowTitle(QStringLiteral("Option Select 1"));
  auto* all = new QVBoxLayout(this);
  for (std::size_t pair = 0; pair < buttons_.size(); ++pair) {
    auto* group = new QGroupBox(this);
    auto* row = new QHBoxLayout(group);
    for (std::size_t i = 0; i < 2; ++i) {
      auto* button = new QRadioButton(QString::fromLatin1(COptionSelectDlg::kCaptions[pair][i]), group);
      buttons_[pair][i] = button;
      row->addWidget(button);
      connect(button, &QRadioButton::clicked, this,
              [this, pair, i] { dialog_.Click(static_cast<COptionSelectDlg::Pair>(pair), static_cast<int>(i)); });
    }
    all->addWidget(group);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, [this] {
    dialog_.OnOk();
    accept();
  });
  all->addWidget(buttons);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  mirror_.Show([this] { Sync(); });
}

void OptionSelectWindow::Sync() {
  for (std::size_t pair = 0; pair < buttons_.size(); ++pair) {
    const int shown = dialog_.Shown(static_cast<COptionSelectDlg::Pair>(pair));
    for (std::size_t i = 0; i < 2; ++i) {
      QRadioButton& button = *buttons_[pair][i];
      // An exclusive group won't let go of its last mark.
      if (shown < 0) button.setAutoExclusive(false);
      button.setChecked(shown == static_cast<int>(i));
      button.setAutoExclusive(true);
    }
  }
}

}  // namespace pyxis::ui
