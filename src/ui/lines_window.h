// A dialog of a few lines of text, one action and Cancel: what the two windows that question the writer have in common.
#pragma once

#include <QDialog>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "ui/handler_gate.h"

class QLabel;
class QPushButton;

namespace pyxis::ui {

class LinesWindow : public QDialog {
 public:
  // Escape and the title bar's button count as Cancel, and do nothing while it is disabled.
  void reject() override;

 protected:
  LinesWindow(const QString& title, std::size_t lineCount, const QString& action, HandlerGate& gate, QWidget* parent);
  void Show(std::span<const std::string> lines, bool actionEnabled, bool cancelEnabled);
  std::function<void()> Action;  // when the button is pressed

 private:
  std::vector<QLabel*> lines_;
  QPushButton* action_ = nullptr;
  QPushButton* cancel_ = nullptr;
  HandlerGate& gate_;
};

}  // namespace pyxis::ui
