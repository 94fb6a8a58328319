#include "ui/key_repeat_filter.h"

#include <QKeyEvent>

namespace pyxis::ui {

bool KeyRepeatFilter::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  return key->isAutoRepeat() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
}

}  // namespace pyxis::ui
