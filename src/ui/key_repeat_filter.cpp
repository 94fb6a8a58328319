#include "ui/key_repeat_filter.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace pyxis::ui {

bool KeyRepeatFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!key->isAutoRepeat()) return false;
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) return true;
  return key->key() == Qt::Key_Space && qobject_cast<QAbstractButton*>(watched) != nullptr;
}

}  // namespace pyxis::ui
