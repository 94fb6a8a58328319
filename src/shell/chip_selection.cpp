#include "shell/chip_selection.h"

#include "catalogue/chip_catalogue.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

void ShowChipName(const std::string& name) {
  AppState& app = TheAppState();
  app.selection.SelectedChip = name;
  app.selection.ChipNameText = name;
  TheMainControls().title = "PyxisLoad  " + name + "  ";
  SetControlText(ControlId::ChipNameField, name);
}

void TakeCatalogueRow(const std::string& label) {
  AppState& app = TheAppState();
  if (FindChip(label, app.selection.SeriesIndex, app.selection.TypeIndex) != 0)
    app.selection.HasSmartOption = Row(app.selection.SeriesIndex, app.selection.TypeIndex).HasSmartOption;
}

void ShowPinFigure(const std::string& label) {
  const AppState& app = TheAppState();
  const std::string path = FigurePath(label, app.selection.ExhvIsp, app.selection.IspProgram);
  TheMainControls().pinFigure = OpenFile(path, "rb") ? path : "";
  TheMachine().view->ControlsChanged();
}

void ClearPinFigure() {
  TheMainControls().pinFigure.clear();
  TheMachine().view->ControlsChanged();
}

}  // namespace pyxis
