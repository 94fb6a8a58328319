// Shows the records of MainControls on the widgets that stand for them.
#pragma once

#include <array>

#include "shell/ground/main_controls.h"

class QWidget;

namespace pyxis::ui {

class ControlMirror {
 public:
  // The widget belongs to its parent. A line edit or a text edit shows the text, a check box the mark. A page of a
  // stack is shown and hidden by its stack.
  enum class Kind { Control, Page };
  void Bind(ControlId id, QWidget* widget, Kind kind = Kind::Control) {
    widgets_[static_cast<std::size_t>(id)] = {widget, kind};
  }
  QWidget* Widget(ControlId id) const { return widgets_[static_cast<std::size_t>(id)].widget; }
  void Sync() const;

 private:
  struct Bound {
    QWidget* widget = nullptr;
    Kind kind = Kind::Control;
  };
  std::array<Bound, static_cast<std::size_t>(ControlId::Count)> widgets_{};
};

}  // namespace pyxis::ui
