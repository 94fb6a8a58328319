#include "shell/on_device.h"

#include "catalogue/chip_catalogue.h"
#include "catalogue/ic_select.h"
#include "options/fuse_panel.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "shell/chip_selection.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"
#include "shell/ground/verdict_line.h"
#include "shell/loaded_file.h"
#include "shell/mode_labels.h"
#include "shell/start_up.h"

namespace pyxis {

namespace {

void TakeSelection(const CIcSelectDlg& dialog) {
  AppState& app = TheAppState();
  const std::string label = Row(dialog.seriesIndex, dialog.typeIndex).TypeLabel;
  app.conversion.SystemConfigWord = kNoSystemConfig;
  ClearVerdict();
  ShowChipName(dialog.chipName);
  TakeCatalogueRow(label);
  app.selection.ExhvIsp = dialog.exhvIspValue;
  app.selection.IspProgram = dialog.ispValue;
  app.selection.MassProduction = dialog.massProductionValue ? MassMode::On : MassMode::Off;
  app.selection.ProductionLimitOn = dialog.productionLimitValue;
  app.selection.ProductionLimitCount = dialog.productionLimitCount;
  EnableOperations();  // by the serial number mode of before
  ShowPinFigure(label);
  ForgetLoadedFile();
  ClearChecksum();
  app.conversion.JobChecksum.reset();
  app.selection.SnMode = dialog.displaySerialValue;
  StopSnProgress();
  if (app.selection.SnMode) {
    CSnSetDlg serial(true, app.selection.ExhvIsp, app.selection.IspProgram);
    serial.OnInitDialog();
    TheMachine().op->RunDialog(serial);
  }
  ShowModeLabels();
}

// A writer that came while the dialog lay open may be of the other model, whose ICs weren't on offer, or of one that
// isn't known.
bool IsForWriter(Model offered) {
  if (TheAppState().writer.WriterModel == offered) return true;
  TheMachine().op->Tell(kPowerOnTheWriter, kMessageCaption, MessageIcon::Stop);
  return false;
}

Outcome Select() {
  CIcSelectDlg dialog;
  if (!dialog.OnInitDialog()) return Refused(Reason::OtherModel);
  if (TheMachine().op->RunDialog(dialog) != DialogEnd::Ok) return Cancelled();
  if (!IsForWriter(dialog.model)) return Refused(Reason::OtherModel);
  TakeSelection(dialog);
  return kGood;
}

}  // namespace

Outcome OnDevice() {
  AppState& app = TheAppState();
  SettleModelAtSelection();
  const Outcome outcome = Select();
  if (!outcome.Good()) {
    app.selection.SnMode = false;
    app.selection.MassProduction = MassMode::Off;
  }
  EnableControl(ControlId::SmartOption, app.selection.HasSmartOption);
  ResetFusePanel();
  return outcome;
}

}  // namespace pyxis
