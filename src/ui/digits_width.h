// A line edit wide enough for that many digits, whatever its style puts around them.
#pragma once

#include <QLineEdit>
#include <QStyleOptionFrame>

namespace pyxis::ui {

inline void FitDigits(QLineEdit& edit, std::size_t count) {
  constexpr int kInside = 2 * 2 + 2;  // what a line edit leaves free on both sides, and the caret
  edit.ensurePolished();
  const QFontMetrics metrics(edit.font());
  const int text = metrics.horizontalAdvance(QString(static_cast<qsizetype>(count), QLatin1Char('D')));
  QStyleOptionFrame option;
  option.initFrom(&edit);
  option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
  const QSize size(text + kInside, metrics.height());
  edit.setMinimumWidth(edit.style()->sizeFromContents(QStyle::CT_LineEdit, &option, size, &edit).width());
}

}  // namespace pyxis::ui
