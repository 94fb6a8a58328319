#include "shell/device_arrival.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "link/identification.h"
#include "link/transport.h"
#include "link/writer_commands.h"
#include "operations/firmware.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/writer_watch.h"
#include "shell/link_status.h"
#include "shell/mode_labels.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kSettleMs = 1200;

bool IsWriter(const DeviceEvent& event) {
  return !ActiveTransport().NamesItsEvents() || event.deviceName.find(kWriterInterfaceClass) != std::string::npos;
}

void DisableAll() {
  DisableOperations();
  EnableControl(ControlId::WriterTest, false);
}

// A model that has lost its firmware but still has its job.
void RecoverFirmware() {
  AppState& app = TheAppState();
  Operator& op = *TheMachine().op;
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const Model model = ModelOf(FieldByte(app.writer.WriterInfoBlock, Field::WriterModelByte));
  if (model != Model::None) {
    op.Tell("Hardware/Firmware Error", kMessageCaption, MessageIcon::Stop);
    op.Tell(Printf("%s Error About To Enter The Test Mode.\nPlease Wait", NameOf(model)), kMessageCaption,
            MessageIcon::Warning);
    const bool good = LoadFirmware(FirmwareFolder(model) + TestImageName(model), true).Good();
    op.Tell(good ? "Test Ok.\nPlease Re-select The IC" : "Test Fail");
    SetControlText(ControlId::BufferArea, app.program.ReadyText);
    return;
  }
  op.Tell("Hardware Error", kMessageCaption, MessageIcon::Stop);
  op.Tell("Please sent for repair", kMessageCaption, MessageIcon::Warning);
}

// The register alone decides here.
void SettleModel() {
  AppState& app = TheAppState();
  PeekModelRegister();
  app.writer.WriterModel = ModelOf(app.writer.ModelRegister);
}

void EnableAll() {
  EnableControls(kTasks, true);
  EnableControl(ControlId::Read, true);
  if (TheAppState().selection.HasSmartOption) EnableControl(ControlId::SmartOption, true);
  EnableControl(ControlId::WriterTest, true);
}

void OnArrival(const DeviceEvent& event) {
  AppState& app = TheAppState();
  ReopenVendorTransport();
  if (!IsWriter(event)) return;
  app.writer.WriterConnected = ActiveTransport().Open();
  if (!app.writer.WriterConnected) {
    DisableAll();
    ShowLinkStatus();  // which tells why it can't be opened
    return;
  }
  ReadWriterIdentity();
  SetWriterMode(mode::kArrival);
  SettleModel();
  if (app.writer.WriterModel == Model::None) RecoverFirmware();
  ReadFirmwareBytes();
  WaitMs(kSettleMs);
  ShowLinkStatus();
  EnableAll();
  ReadInfoBlock(app.writer.WriterInfoBlock);
  RefreshFromWriter();
  ShowModeLabels();
  if (app.selection.MassProduction != MassMode::Off || app.selection.ProductionLimitOn)
    EnableControls(kSingleTasks, false);
  FocusControl(ControlId::Auto);
  TellWriterArrived();
}

void OnRemoval(const DeviceEvent& event) {
  AppState& app = TheAppState();
  if (!IsWriter(event)) return;
  if (ActiveTransport().SurvivesRemoval()) return;
  ActiveTransport().Close();
  app.writer.WriterConnected = false;
  ShowLinkStatus();
  DisableAll();
}

}  // namespace

void OnDeviceEvent(const DeviceEvent& event) {
  if (event.kind == DeviceEvent::Kind::Arrival) {
    OnArrival(event);
  } else {
    OnRemoval(event);
  }
}

}  // namespace pyxis
