#include "serial/sn_buttons.h"

#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

void SwitchTaskButtonsBySnMode() { EnableControls(kTasks, !TheAppState().selection.SnMode); }

}  // namespace pyxis
