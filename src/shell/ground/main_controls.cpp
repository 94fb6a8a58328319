#include "shell/ground/main_controls.h"

#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

MainControls theMainControls;

void Changed() { TheMachine().view->ControlsChanged(); }
void ProgressMoved() { TheMachine().view->ProgressChanged(); }

}  // namespace

// The fuse panel is a display: no click reaches its boxes.
MainControls::MainControls() {
  for (const ControlId id : {ControlId::Protect, ControlId::Unprotect, ControlId::FastMode, ControlId::DualMode,
                             ControlId::Clock32kDisable, ControlId::Clock32kEnable})
    (*this)[id].enabled = false;
}

MainControls& TheMainControls() { return theMainControls; }

void ResetMainControls() { theMainControls = MainControls{}; }

void EnableControl(ControlId id, bool enabled) {
  theMainControls[id].enabled = enabled;
  Changed();
}

void EnableControls(std::span<const ControlId> ids, bool enabled) {
  for (const ControlId id : ids) EnableControl(id, enabled);
}

void ShowControl(ControlId id, bool visible) {
  theMainControls[id].visible = visible;
  Changed();
}

void SetControlText(ControlId id, const std::string& text) {
  theMainControls[id].text = text;
  Changed();
}

namespace {

void SetChecksumText(const std::string& text) {
  TheAppState().conversion.ChecksumText = text;
  SetControlText(ControlId::ChecksumField, text);
}

}  // namespace

void ShowChecksum() { SetChecksumText(Printf("%04X", TheAppState().conversion.ImageChecksum)); }
void ClearChecksum() { SetChecksumText(""); }

void CheckControl(ControlId id, bool checked) {
  theMainControls[id].checked = checked;
  Changed();
}

void FocusControl(ControlId id) {
  theMainControls.focus = id;
  Changed();
}

void SetProgressRange(int low, int high) {
  CProgStatusBar& bar = theMainControls.statusBar;
  bar.low = low;
  bar.high = high;
  bar.position = 0;
  bar.progressVisible = false;
  ProgressMoved();
}

void SetProgressPosition(int position) {
  CProgStatusBar& bar = theMainControls.statusBar;
  const bool visible = position != 0;
  if (visible != bar.progressVisible) bar.pane0.clear();
  bar.progressVisible = visible;
  bar.position = position < bar.low ? bar.low : position > bar.high ? bar.high : position;
  ProgressMoved();
}

void SetStatusText(const std::string& text) {
  theMainControls.statusBar.pane0 = text;
  Changed();
}

void ClearStatusText() { SetStatusText(""); }

void DisableOperations() {
  EnableControls(kTasks, false);
  EnableControl(ControlId::Read, false);
  EnableControl(ControlId::SmartOption, false);
}

void EnableOperations() {
  const AppState& app = TheAppState();
  if (!app.selection.SnMode) {
    const bool single = app.selection.MassProduction == MassMode::Off && !app.selection.ProductionLimitOn;
    EnableControl(ControlId::Auto, true);
    EnableControls(kSingleTasks, single);
  }
  EnableControl(ControlId::Read, true);
  if (app.selection.HasSmartOption) EnableControl(ControlId::SmartOption, true);
}

void PumpPaint() { TheMachine().view->PumpPaint(); }

}  // namespace pyxis
