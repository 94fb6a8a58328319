#include "ui/progress_status_bar.h"

#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QStyle>

#include "shell/ground/main_controls.h"
#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

constexpr int kPane1Width = 200;
constexpr QColor kBackground(200, 200, 200);
constexpr int kMargin = 4;

QLabel* MakePane(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ProgressStatusBar::ProgressStatusBar(QWidget* parent)
    : QStatusBar(parent),
      pane0_(MakePane(this)),
      icon_(MakePane(this)),
      pane1_(MakePane(this)),
      note_(MakePane(this)),
      progress_(new QProgressBar(this)) {
  setSizeGripEnabled(false);
  setAutoFillBackground(true);
  QPalette colours = palette();
  for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button, QPalette::Base})
    colours.setColor(role, kBackground);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
    colours.setColor(role, Qt::black);
  setPalette(colours);
  setFixedHeight(fontMetrics().height() + 2 * kMargin);
  pane0_->setAccessibleDescription(QStringLiteral("Status"));  // the name of a label is its text
  pane1_->setAccessibleDescription(QStringLiteral("Link status"));
  progress_->setAccessibleName(QStringLiteral("Progress"));
  note_->setAccessibleDescription(QStringLiteral("Right to open the writer"));
  note_->setText(QStringLiteral("No right to open the writer"));
  note_->setAutoFillBackground(true);
  note_->hide();
  progress_->setTextVisible(false);
  progress_->hide();
}

bool ProgressStatusBar::ShowsProgress() const { return !progress_->isHidden(); }

void ProgressStatusBar::Sync() {
  const CProgStatusBar& bar = TheMainControls().statusBar;
  const QString text0 = FromText(bar.pane0);
  if (pane0_->text() != text0) pane0_->setText(text0);
  const QString text1 = FromText(bar.pane1);
  if (pane1_->text() != text1) {
    pane1_->setText(text1);
    LayOut();
  }
  const QString words = FromText(bar.missingRight);
  for (QLabel* label : {note_, icon_, pane1_}) label->setToolTip(words);
  note_->setVisible(!words.isEmpty());
  if (iconShown_ != (bar.connectedIcon ? 1 : 0)) {
    iconShown_ = bar.connectedIcon ? 1 : 0;
    const QIcon icon =
        style()->standardIcon(bar.connectedIcon ? QStyle::SP_DialogApplyButton : QStyle::SP_DialogCancelButton);
    icon_->setPixmap(icon.pixmap(QSize(fontMetrics().height(), fontMetrics().height()), devicePixelRatioF()));
  }
  if (progress_->minimum() != bar.low || progress_->maximum() != bar.high) progress_->setRange(bar.low, bar.high);
  progress_->setValue(bar.position);
  progress_->setVisible(bar.progressVisible);
}

void ProgressStatusBar::resizeEvent(QResizeEvent*) { LayOut(); }

// Pane 1 grows beyond its width only where its text needs it.
void ProgressStatusBar::LayOut() {
  const int iconWidth = fontMetrics().height() + 2 * kMargin;
  const int width1 = std::max(kPane1Width, iconWidth + pane1_->sizeHint().width() + kMargin);
  const int width0 = width() - width1;
  pane0_->setGeometry(kMargin, 0, width0 - kMargin, height());
  const int noteWidth = note_->sizeHint().width() + kMargin;
  note_->setGeometry(width0 - noteWidth, 0, noteWidth, height());
  progress_->setGeometry(0, 2, width0, height() - 4);
  icon_->setGeometry(width0 + kMargin, kMargin, iconWidth - kMargin, height() - 2 * kMargin);
  pane1_->setGeometry(width0 + iconWidth, 0, width1 - iconWidth, height());
}

}  // namespace pyxis::ui
