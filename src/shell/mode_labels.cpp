#include "shell/mode_labels.h"

#include "shell/app_state.h"
#include "shell/main_controls.h"

namespace pyxis {

void ShowModeLabels() {
  const AppState& app = TheAppState();
  ShowControl(ControlId::ExhvIspLabel, app.ExhvIsp == 1);
  ShowControl(ControlId::IspLabel, app.IspProgram == 1);
  ShowControl(ControlId::MassProductionLabel, app.MassProduction == 1);
  ShowControl(ControlId::ProductionLimitLabel, app.ProductionLimitOn == 1);
}

}  // namespace pyxis
