#include "view/buffer_area.h"

#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

void FrontBufferArea() {
  EnableControl(ControlId::BufferArea, true);
  ShowControl(ControlId::BufferArea, true);
  ShowControl(ControlId::HexView, false);
  PumpPaint();
}

void FrontHexView() {
  EnableControl(ControlId::BufferArea, false);
  ShowControl(ControlId::HexView, true);
  PumpPaint();
}

void SetReadyText(const std::string& text) {
  TheAppState().program.ReadyText = text;
  SetControlText(ControlId::BufferArea, text);
  PumpPaint();
}

}  // namespace pyxis
