#include "serial/sn_buttons.h"

#include "shell/app_state.h"
#include "shell/main_controls.h"

namespace pyxis {

void SwitchTaskButtonsBySnMode() {
  const bool enabled = TheAppState().SnMode == 0;
  for (ControlId id : {ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify})
    EnableControl(id, enabled);
}

}  // namespace pyxis
