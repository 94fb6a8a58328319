// What the operator types and clicks, before any window of the program gets it. Three kinds are dropped here, for all
// windows alike: what was done while an operation ran, what comes to a message box before it can have been read, and
// the repeats of a held key that would press something.
#pragma once

#include <QObject>
#include <QPointer>
#include <cstdint>

class QKeyEvent;
class QWidget;

namespace pyxis::ui {

class InputFilter : public QObject {
 public:
  // Takes every event out of the queue, and drops the operator's.
  void Discard();
  // This box takes no key and no click in the first 300 ms that it can be seen.
  void GuardBox(QWidget& box);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  bool IsInBox(const QObject& receiver) const;
  bool BoxIsNew(const QObject& receiver) const;
  bool IsRepeat(const QKeyEvent& key);

  int discarding_ = 0;
  QPointer<QWidget> box_;  // the one in front
  std::uint32_t shownAt_ = 0;
  bool painted_ = false;
  int releasedKey_ = 0;  // the last key that went up, and when
  quint64 releasedAt_ = 0;
};

}  // namespace pyxis::ui
