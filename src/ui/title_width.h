// How wide a window must be so that its title bar shows the whole title.
#pragma once

#include <QStyle>
#include <QWidget>

namespace pyxis::ui {

// Window managers draw titles in a bold font as a rule, between an icon and up to three buttons.
inline int TitleWidth(const QWidget& window, const QString& title) {
  QFont font = window.font();
  font.setBold(true);
  const int bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return QFontMetrics(font).horizontalAdvance(title) + 4 * bar;
}

}  // namespace pyxis::ui
