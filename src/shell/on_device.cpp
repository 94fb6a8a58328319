#include "shell/on_device.h"

#include "catalogue/chip_catalogue.h"
#include "catalogue/ic_select.h"
#include "options/fuse_panel.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "shell/app_state.h"
#include "shell/chip_selection.h"
#include "shell/main_controls.h"
#include "shell/mode_labels.h"
#include "shell/start_up.h"
#include "view/show_file.h"

namespace pyxis {

namespace {

void TakeSelection(const CIcSelectDlg& dialog) {
  AppState& app = TheAppState();
  const std::string label = Row(dialog.seriesIndex, dialog.typeIndex).TypeLabel;
  app.SystemConfigWord = kNoSystemConfig;
  ShowChipName(dialog.chipName);
  TakeCatalogueRow(label);
  ClearPinFigure();
  app.ExhvIsp = static_cast<std::uint32_t>(dialog.exhvIspValue);
  app.IspProgram = static_cast<std::uint32_t>(dialog.ispValue);
  app.MassProduction = static_cast<std::uint32_t>(dialog.massProductionValue);
  app.ProductionLimitOn = static_cast<std::uint32_t>(dialog.productionLimitValue);
  app.ProductionLimitCount = dialog.productionLimitCount;
  EnableOperations();  // by the serial number mode of before
  ShowPinFigure(label);
  app.LoadedFilePath.clear();
  SetControlText(ControlId::FileField, "");
  ShowFile("");
  app.ChecksumText.clear();
  SetControlText(ControlId::ChecksumField, "");
  app.SnMode = static_cast<std::uint32_t>(dialog.displaySerialValue);
  StopSnProgress();
  if (app.SnMode == 1) {
    CSnSetDlg serial(true, app.ExhvIsp != 0, app.IspProgram != 0);
    serial.OnInitDialog();
    TheMachine().op->RunDialog(serial);
  }
  ShowModeLabels();
}

}  // namespace

void OnDevice() {
  AppState& app = TheAppState();
  SettleModelAtSelection();
  CIcSelectDlg dialog;
  if (dialog.OnInitDialog() && TheMachine().op->RunDialog(dialog) == DialogEnd::Ok) {
    TakeSelection(dialog);
  } else {
    app.SnMode = 0;
    app.MassProduction = 0;
  }
  EnableControl(ControlId::SmartOption, app.HasSmartOption != 0);
  ResetFusePanel();
}

}  // namespace pyxis
