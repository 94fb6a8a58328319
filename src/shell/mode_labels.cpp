#include "shell/mode_labels.h"

#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

void ShowModeLabels() {
  const AppState& app = TheAppState();
  ShowControl(ControlId::ExhvIspLabel, app.selection.ExhvIsp);
  ShowControl(ControlId::IspLabel, app.selection.IspProgram);
  ShowControl(ControlId::MassProductionLabel, app.selection.MassProduction == MassMode::On);
  ShowControl(ControlId::ProductionLimitLabel, app.selection.ProductionLimitOn);
}

}  // namespace pyxis
