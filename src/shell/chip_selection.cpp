#include "shell/chip_selection.h"

#include "catalogue/chip_catalogue.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "shell/app_state.h"
#include "shell/main_controls.h"

namespace pyxis {

void ShowChipName(const std::string& name) {
  AppState& app = TheAppState();
  app.SelectedChip = name;
  app.ChipNameText = name;
  TheMainControls().title = "PyxisLoad  " + name + "  ";
  SetControlText(ControlId::ChipNameField, name);
}

void TakeCatalogueRow(const std::string& label) {
  AppState& app = TheAppState();
  if (FindChip(label, app.SeriesIndex, app.TypeIndex) != 0)
    app.HasSmartOption = Row(app.SeriesIndex, app.TypeIndex).HasSmartOption ? 1 : 0;
}

void ShowPinFigure(const std::string& label) {
  const AppState& app = TheAppState();
  const std::string path = FigurePath(label, app.ExhvIsp != 0, app.IspProgram != 0);
  TheMainControls().pinFigure = OpenFile(path, "rb") ? path : "";
  TheMachine().view->ControlsChanged();
}

void ClearPinFigure() {
  TheMainControls().pinFigure.clear();
  TheMachine().view->ControlsChanged();
}

}  // namespace pyxis
