#include "shell/main_dialog.h"

#include "intake/load_file.h"
#include "link/writer_commands.h"
#include "operations/chip_info.h"
#include "operations/compare_file.h"
#include "operations/firmware.h"
#include "operations/read_chip.h"
#include "operations/self_test.h"
#include "operations/tasks.h"
#include "options/fuse_panel.h"
#include "options/set_protect.h"
#include "options/smart_option.h"
#include "options/smart_option_dlg.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "shell/chip_selection.h"
#include "shell/device_arrival.h"
#include "shell/ground/app_state.h"
#include "shell/link_status.h"
#include "shell/mode_labels.h"
#include "shell/on_device.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"
#include "shell/version_check.h"
#include "view/hex_view.h"

namespace pyxis {

namespace {

// Longest directories that the program keeps, in bytes.
constexpr std::size_t kLongestStartDirectory = 255;
constexpr std::size_t kLongestAppDir = 512;

void ShowWriterAndJob() {
  AppState& app = TheAppState();
  const bool connected = app.writer.WriterConnected;
  EnableControls(kTasks, connected);
  EnableControl(ControlId::Read, connected);
  EnableControl(ControlId::WriterTest, connected);
  if (connected) {
    ReadInfoBlock(app.writer.WriterInfoBlock);
    RefreshFromWriter();
  }
  ShowModeLabels();
  EnableControl(ControlId::SmartOption, app.selection.HasSmartOption && connected);
  ShowControl(ControlId::ProductionLimitLabel, false);
}

// Single transfers drive the bar and leave it full; nothing is under way any more.
void HideProgress() {
  if (TheMainControls().statusBar.progressVisible) SetProgressPosition(0);
}

bool AskExit() { return TheMachine().op->Ask("Are you sure to Exit ?", kBlankCaption, MessageIcon::Question); }

}  // namespace

void CPyxisLoadDlg::OnInitDialog() {
  AppState& app = TheAppState();
  const std::string directory = CurrentDirectory();
  app.program.StartDirectory = directory.substr(0, kLongestStartDirectory);
  ResetSnRecord();
  app.selection.ChipNameText.clear();
  app.selection.SelectedChip.clear();
  ClearPinFigure();
  ConfigureHexView();
  ShowControl(ControlId::HexView, true);
  EnableControl(ControlId::BufferArea, false);
  ShowControl(ControlId::Read, false);
  ShowControl(ControlId::WriterTest, false);
  app.program.AppDir = directory.substr(0, kLongestAppDir) + kPathSeparator;
  IdentifyAtStart();
  TheMainControls().title = "PyxisLoad";
  app.cursors.BusyCursor = 0;
  ShowLinkStatus();
  HideFusePanel();
  ShowWriterAndJob();
  AllocateSmartOptionBuffer();
  HideProgress();
}

void CPyxisLoadDlg::OnDestroy() {
  SnProgressDlg().reset();
  FreeSmartOptionBuffer();
}

void CPyxisLoadDlg::OnCommand(MenuEntry entry) {
  if (!MenuEnabled(entry)) return;
  RunCommand(entry);
  HideProgress();
}

void CPyxisLoadDlg::OnButton(ControlId button) {
  RunButton(button);
  HideProgress();
}

void CPyxisLoadDlg::OnDevice(const DeviceEvent& event) {
  OnDeviceEvent(event);
  HideProgress();
}

void CPyxisLoadDlg::RunCommand(MenuEntry entry) {
  switch (entry) {
    case MenuEntry::LoadFile:
      OnLoadFile();
      break;
    case MenuEntry::Exit:
      OnExit();
      break;
    case MenuEntry::Device:
      pyxis::OnDevice();
      break;
    case MenuEntry::UpdateFirmware:
      OnUpdateFirmware();
      break;
    case MenuEntry::SerialNumberProgram:
      OnSerialNumberProgram();
      break;
    case MenuEntry::SetProtect:
      OnSetProtect();
      break;
    case MenuEntry::About:
      TheMachine().op->RunAbout();
      break;
    case MenuEntry::CheckNewVersion:
      CheckNewVersion();
      break;
    case MenuEntry::CompareFile:
      OnDownloadInfo();
      break;
    case MenuEntry::ReadChipInfo:
      OnReadChipInfo();
      break;
    case MenuEntry::SaveAs:
      break;
  }
}

void CPyxisLoadDlg::RunButton(ControlId button) {
  switch (button) {
    case ControlId::Auto:
      OnAuto();
      break;
    case ControlId::BlankCheck:
      OnBlankCheck();
      break;
    case ControlId::Program:
      OnProgram();
      break;
    case ControlId::Verify:
      OnVerify();
      break;
    case ControlId::SmartOption:
      OnSmartOption();
      break;
    case ControlId::Read:
      OnRead();
      break;
    case ControlId::WriterTest:
      OnWriterTest();
      break;
    default:
      break;
  }
}

void CPyxisLoadDlg::OnMouseMove(int x, int y) { SetStatusText(Printf("X=%d Y=%d", x, y)); }

void CPyxisLoadDlg::OnMenuPrompt(const std::string& prompt) { SetStatusText(prompt); }

bool CPyxisLoadDlg::DropsMousePress() const { return TheAppState().writer.TransferBusy; }

bool CPyxisLoadDlg::OnSysClose() { return AskExit(); }

void CPyxisLoadDlg::OnExit() {
  if (AskExit()) TheMachine().view->CloseMainWindow();
}

}  // namespace pyxis
