#include "ui/lines_window.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

constexpr int kLineCharacters = 44;  // the longest line, so that the window keeps its size

}  // namespace

LinesWindow::LinesWindow(const QString& title, std::size_t lineCount, const QString& action, HandlerGate& gate,
                         QWidget* parent)
    : QDialog(parent), gate_(gate) {
  setWindowTitle(title);
  auto* all = new QVBoxLayout(this);
  for (std::size_t i = 0; i < lineCount; ++i) {
    auto* line = new QLabel(this);
    line->setTextFormat(Qt::PlainText);
    line->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line->setMinimumWidth(kLineCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    all->addWidget(line);
    lines_.push_back(line);
  }
  auto* buttons = new QDialogButtonBox(this);
  action_ = buttons->addButton(action, QDialogButtonBox::ActionRole);
  cancel_ = buttons->addButton(QDialogButtonBox::Cancel);
  action_->setDefault(true);
  connect(action_, &QPushButton::clicked, this, [this] { gate_.Run(Action); });
  connect(buttons, &QDialogButtonBox::rejected, this, &LinesWindow::reject);
  all->addWidget(buttons);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void LinesWindow::Show(std::span<const std::string> lines, bool actionEnabled, bool cancelEnabled) {
  for (std::size_t i = 0; i < lines_.size(); ++i) lines_[i]->setText(FromText(lines[i]));
  action_->setEnabled(actionEnabled);
  cancel_->setEnabled(cancelEnabled);
}

void LinesWindow::reject() {
  if (cancel_->isEnabled() && !gate_.Busy()) QDialog::reject();
}

}  // namespace pyxis::ui
