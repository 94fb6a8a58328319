#include "ui/control_mirror.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "ui/qt_text.h"

namespace pyxis::ui {

namespace {

void ShowText(QWidget& widget, const std::string& text) {
  const QString shown = FromText(text);
  if (auto* line = qobject_cast<QLineEdit*>(&widget); line != nullptr && line->text() != shown) {
    line->setText(shown);
    line->setCursorPosition(0);
    line->setToolTip(shown);
  } else if (auto* area = qobject_cast<QPlainTextEdit*>(&widget)) {
    QString lines = shown;
    lines.remove(QLatin1Char('\r'));
    if (area->toPlainText() != lines) area->setPlainText(lines);
  }
}

void Show(QWidget& widget, const ControlState& state, bool ownVisibility) {
  if (widget.isEnabledTo(widget.parentWidget()) != state.enabled) widget.setEnabled(state.enabled);
  if (ownVisibility && widget.isHidden() == state.visible) widget.setVisible(state.visible);
  ShowText(widget, state.text);
  if (auto* box = qobject_cast<QCheckBox*>(&widget)) box->setChecked(state.checked);
}

}  // namespace

void ControlMirror::Sync() const {
  for (std::size_t i = 0; i < widgets_.size(); ++i)
    if (widgets_[i].widget != nullptr)
      Show(*widgets_[i].widget, TheMainControls().controls[i], widgets_[i].kind == Kind::Control);
}

}  // namespace pyxis::ui
