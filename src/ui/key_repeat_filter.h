// Enter that is held down presses a button once, as Space does by itself: repeated, it would do the next chip, or the
// same one again.
#pragma once

#include <QObject>

namespace pyxis::ui {

class KeyRepeatFilter : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override;
};

}  // namespace pyxis::ui
