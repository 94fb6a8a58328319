// A key that is held down presses a button once: a repeated Enter or Space would do the next chip, or the same one again.
#pragma once

#include <QObject>

namespace pyxis::ui {

class KeyRepeatFilter : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace pyxis::ui
