#include "shell/device_arrival.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "operations/firmware.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/vendor_api.h"
#include "shell/app_state.h"
#include "shell/link_status.h"
#include "shell/main_controls.h"
#include "shell/mode_labels.h"
#include "shell/refresh_from_writer.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kSettleMs = 1200;

constexpr ControlId kTaskButtons[] = {ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify,
                                      ControlId::Read};

bool IsWriter(const DeviceEvent& event) {
  return event.deviceName.find(kWriterInterfaceClass) != std::string::npos || TheAppState().UseVendorApi != 0;
}

void DisableAll() {
  for (ControlId id : kTaskButtons) EnableControl(id, false);
  EnableControl(ControlId::SmartOption, false);
  EnableControl(ControlId::WriterTest, false);
}

// A model that has lost its firmware but still has its job.
struct TestImage {
  std::uint8_t modelByte;
  int model;
  const char* text;
  const char* file;
};
constexpr TestImage kTestImages[] = {
    {kRegisterKm48, kModelKm48, "KM48 Error About To Enter The Test Mode.\nPlease Wait", "48test.nce"},
    {kRegisterKm49, kModelKm49, "KM49 Error About To Enter The Test Mode.\nPlease Wait", "49test.nce"},
};

void RecoverFirmware() {
  AppState& app = TheAppState();
  Operator& op = *TheMachine().op;
  ReadInfoBlock(app.WriterInfoBlock);
  for (const TestImage& image : kTestImages) {
    if (FieldByte(app.WriterInfoBlock, Field::WriterModelByte) != image.modelByte) continue;
    op.Tell("Hardware/Firmware Error", kMessageCaption, MessageIcon::Stop);
    op.Tell(image.text, kMessageCaption, MessageIcon::Warning);
    const bool good = LoadFirmware(FirmwareFolder(image.model) + image.file, true);
    op.Tell(good ? "Test Ok.\nPlease Re-select The IC" : "Test Fail");
    SetControlText(ControlId::BufferArea, app.ReadyText);
    return;
  }
  op.Tell("Hardware Error", kMessageCaption, MessageIcon::Stop);
  op.Tell("Please sent for repair", kMessageCaption, MessageIcon::Warning);
}

// The register alone decides here.
void SettleModel() {
  AppState& app = TheAppState();
  app.ModelRegister = 0;
  app.ModelRegister = PeekByte(address::kModel);
  app.WriterInfoBlock[Field::WriterModelByte.offset] = 0;
  app.WriterModel = app.ModelRegister == kRegisterKm48   ? kModelKm48
                    : app.ModelRegister == kRegisterKm49 ? kModelKm49
                                                         : kModelNone;
}

void EnableAll() {
  for (ControlId id : kTaskButtons) EnableControl(id, true);
  if (TheAppState().HasSmartOption != 0) EnableControl(ControlId::SmartOption, true);
  EnableControl(ControlId::WriterTest, true);
}

void OnArrival(const DeviceEvent& event) {
  AppState& app = TheAppState();
  TheMachine().vendor->VMClose();
  if (!OpenVendorTransport()) app.UseVendorApi = 0;
  if (!IsWriter(event)) return;
  if (app.UseVendorApi == 0) app.WriterConnected = static_cast<std::uint32_t>(OpenWriterLink());
  if (app.WriterConnected == 0) {
    DisableAll();
    return;
  }
  ReadWriterIdentity();
  SetWriterMode(mode::kArrival);
  SettleModel();
  if (app.WriterModel == kModelNone) RecoverFirmware();
  ReadFirmwareBytes();
  WaitMs(kSettleMs);
  ShowLinkStatus();
  EnableAll();
  ReadInfoBlock(app.WriterInfoBlock);
  RefreshFromWriter();
  ShowModeLabels();
  if (app.MassProduction != 0 || app.ProductionLimitOn != 0)
    for (ControlId id : {ControlId::BlankCheck, ControlId::Program, ControlId::Verify}) EnableControl(id, false);
}

void OnRemoval(const DeviceEvent& event) {
  AppState& app = TheAppState();
  if (!IsWriter(event)) return;
  if (app.UseVendorApi != 0) {
    if (VendorWriterAnswers()) return;  // another device went away
    TheMachine().vendor->VMClose();
  } else {
    CloseWriterLink();
  }
  app.WriterConnected = 0;
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
