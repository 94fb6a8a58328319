#include "ui/choice_list.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace pyxis::ui {

void ChoiceList::mousePressEvent(QMouseEvent* event) {
  const int before = currentRow();
  QListWidget::mousePressEvent(event);
  if (event->button() == Qt::LeftButton && before >= 0 && row(itemAt(event->pos())) == before) TakenAgain(before);
}

void ChoiceList::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter || event->key() == Qt::Key_Space) {
    if (currentRow() >= 0) TakenAgain(currentRow());
    event->setAccepted(!enter);  // Enter goes on to the default button
  } else if (event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::ShiftModifier ||
             event->modifiers() == Qt::KeypadModifier) {
    const QString text = event->text();
    if (text.isEmpty() || !text.front().isPrint()) return QListWidget::keyPressEvent(event);
    Typed(text);
  } else {
    QListWidget::keyPressEvent(event);
  }
}

}  // namespace pyxis::ui
