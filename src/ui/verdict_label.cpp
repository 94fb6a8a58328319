#include "ui/verdict_label.h"

#include <QHBoxLayout>
#include <QLabel>

#include "shell/ground/main_controls.h"
#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

constexpr double kWordsSize = 1.8;  // of the window's font
constexpr double kCountsSize = 1.3;
constexpr QColor kGood(0, 110, 50), kBad(180, 20, 20);

QLabel* MakeLabel(QWidget* parent, double size, const char* description) {
  auto* label = new QLabel(parent);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * size);
  font.setBold(true);
  label->setFont(font);
  label->setTextFormat(Qt::PlainText);
  label->setAccessibleDescription(QString::fromLatin1(description));  // its name is its text
  return label;
}

}  // namespace

VerdictLabel::VerdictLabel(QWidget* parent)
    : QWidget(parent),
      words_(MakeLabel(this, kWordsSize, "Last verdict")),
      counts_(MakeLabel(this, kCountsSize, "Counts since the last load")) {
  words_->setMargin(4);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->addWidget(words_);
  row->addSpacing(12);
  row->addWidget(counts_);
  row->addStretch();
  // It keeps its place when it is empty.
  setFixedHeight(words_->fontMetrics().height() + 2 * words_->margin());
}

void VerdictLabel::Sync() {
  const VerdictLine& line = TheMainControls().verdict;
  words_->setText(FromText(line.words));
  counts_->setText(FromText(line.Counts()));
  QPalette colours = palette();
  if (!line.words.empty()) {
    colours.setColor(QPalette::Window, line.good ? kGood : kBad);
    colours.setColor(QPalette::WindowText, Qt::white);
  }
  words_->setAutoFillBackground(!line.words.empty());
  words_->setPalette(colours);
}

}  // namespace pyxis::ui
