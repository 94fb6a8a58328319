#include "serial/sn_buttons.h"

#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

void SwitchTaskButtonsBySnMode() {
  const bool enabled = !TheAppState().selection.SnMode;
  for (ControlId id : {ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify})
    EnableControl(id, enabled);
}

}  // namespace pyxis
