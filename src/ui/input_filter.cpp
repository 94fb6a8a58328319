#include "ui/input_filter.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include "platform/clock.h"
#include "platform/machine.h"

namespace pyxis::ui {

namespace {

constexpr std::uint32_t kUnreadMs = 300;

std::uint32_t Now() { return TheMachine().clock->TickCount(); }

bool IsKey(QEvent::Type type) {
  return type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride;
}

// Windows of the window system hear these too, and keep their books by them; only what reaches a control counts.
bool IsInput(const QObject& receiver, const QEvent& event) {
  switch (event.type()) {
    case QEvent::Shortcut:
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Drop:
      return receiver.isWidgetType();
    case QEvent::MouseMove:
      return receiver.isWidgetType() && static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
    case QEvent::Close:
      return receiver.isWidgetType() && event.spontaneous();
    default:
      return false;
  }
}

// Space types a blank where there is text to type; Alt goes with a mnemonic.
bool WouldPress(const QObject& receiver, const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Select:
      return true;
    case Qt::Key_Space:
      return qobject_cast<const QAbstractButton*>(&receiver) != nullptr;
    default:
      return key.modifiers().testFlag(Qt::AltModifier);
  }
}

}  // namespace

void InputFilter::Discard() {
  ++discarding_;
  QCoreApplication::processEvents();
  --discarding_;
}

void InputFilter::GuardBox(QWidget& box) {
  box_ = &box;
  shownAt_ = Now();
  painted_ = false;
}

bool InputFilter::IsInBox(const QObject& receiver) const {
  return box_ != nullptr && receiver.isWidgetType() && static_cast<const QWidget&>(receiver).window() == box_;
}

bool InputFilter::BoxIsNew(const QObject& receiver) const {
  return IsInBox(receiver) && (!painted_ || Now() - shownAt_ < kUnreadMs);
}

// An X server repeats a held key as pairs of a release and a press of one moment, which aren't always told as repeats.
bool InputFilter::IsRepeat(const QKeyEvent& key) {
  if (key.isAutoRepeat()) return true;
  return key.type() != QEvent::KeyRelease && key.key() == releasedKey_ && key.timestamp() == releasedAt_ &&
         releasedAt_ != 0;
}

bool InputFilter::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::Paint && !painted_ && receiver == box_) {
    painted_ = true;
    shownAt_ = Now();
  }
  if (!IsInput(*receiver, *event)) return false;
  bool drop = discarding_ > 0 || (event->type() != QEvent::Close && BoxIsNew(*receiver));
  if (IsKey(event->type())) {
    auto& key = *static_cast<QKeyEvent*>(event);
    // A box takes letters for its buttons.
    drop = drop || (IsRepeat(key) && (WouldPress(*receiver, key) || IsInBox(*receiver)));
    if (event->type() == QEvent::KeyRelease) {
      releasedKey_ = key.key();
      releasedAt_ = key.timestamp();
    }
  }
  if (drop && event->type() == QEvent::Close) event->ignore();
  // A shortcut that is overridden isn't looked up.
  if (drop && event->type() == QEvent::ShortcutOverride) event->accept();
  return drop;
}

}  // namespace pyxis::ui
