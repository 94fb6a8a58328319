// Shows the records of MainControls on the widgets that stand for them.
#pragma once

#include <array>

#include "shell/main_controls.h"

class QWidget;

namespace pyxis::ui {

class ControlMirror {
 public:
  // The widget belongs to its parent. A line edit or a text edit shows the text, a check box the mark.
  void Bind(ControlId id, QWidget* widget) { widgets_[static_cast<std::size_t>(id)] = widget; }
  QWidget* Widget(ControlId id) const { return widgets_[static_cast<std::size_t>(id)]; }
  void Sync() const;

 private:
  std::array<QWidget*, static_cast<std::size_t>(ControlId::Count)> widgets_{};
};

}  // namespace pyxis::ui
