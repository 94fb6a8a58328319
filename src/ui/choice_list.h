// A list of IC Type Select: a click or a key that takes the row that is already current counts too, and typed names go
// to the dialog, which looks for them in every list.
#pragma once

#include <QListWidget>
#include <functional>

namespace pyxis::ui {

class ChoiceList : public QListWidget {
 public:
  using QListWidget::QListWidget;
  std::function<void(int)> TakenAgain = [](int) {};  // the current row, by a click, Enter or Space
  std::function<void(const QString&)> Typed = [](const QString&) {};

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyboardSearch(const QString&) override {}  // Typed has it
};

}  // namespace pyxis::ui
