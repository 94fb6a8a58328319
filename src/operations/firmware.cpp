#include "operations/firmware.h"

#include <algorithm>
#include <vector>

#include "catalogue/chip_catalogue.h"
#include "link/transport.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/transfer_steps.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/busy_cursor.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kRestartMs = 3000;

// Positions of the bar with velmarapi.
namespace firmware_bar {
constexpr int kStart = 5;
constexpr int kAddressed = 32;
constexpr int kSent = 69;
constexpr int kDone = 101;
}  // namespace firmware_bar

// The bytes of an image that go out; nothing when the file can't be opened or is too short.
std::optional<std::vector<std::uint8_t>> ReadImage(const std::string& path) {
  auto bytes = ReadForUpdate(path);
  if (!bytes || bytes->size() < kFirmwareImageSize) return std::nullopt;
  bytes->resize(kFirmwareImageSize);
  return bytes;
}

void AddressStart() {
  if (ActiveTransport().CanAddress()) SetAddressZero();
}

std::vector<std::uint8_t> ReadBack(const std::vector<std::uint8_t>& image) {
  std::vector<std::uint8_t> received = DiffersFrom(image, image.size());
  const TransferProgress progress;
  ReadCommand(OP_READ_MEMORY, received);
  return received;
}

// The image out and back.
bool Transfer(const std::string& path, bool sendStartByte, const std::vector<std::uint8_t>& image) {
  const FrameBusy busy;
  StopFrameProgress();
  const TransferSteps steps;
  steps.Show(firmware_bar::kStart);
  if (sendStartByte) StartTask(task::kOpenFirmwareLoad);
  SetWriterMode(mode::kMemory);
  AddressStart();
  steps.Show(firmware_bar::kAddressed);
  {
    const TransferProgress progress;
    WriteCommand(OP_WRITE_MEMORY, image);
  }
  steps.Show(firmware_bar::kSent);
  AddressStart();
  const std::vector<std::uint8_t> received = ReadBack(image);
  const bool good = ReadImage(path) == received;
  if (good || !ActiveTransport().LeavesFailedLoadOpen()) CloseLoad();
  if (good) steps.Show(firmware_bar::kDone);
  return good;
}

// Whether Update F/W must not send an image of this model to the attached writer.
bool RefusesImage(std::uint8_t imageModel) {
  switch (TheAppState().writer.WriterModel) {
    case Model::Km48:
      return imageModel == kRegisterKm49;
    case Model::Km49:
      return imageModel == kRegisterKm48;
    default:
      return true;
  }
}

Outcome LastLoad() { return TheAppState().writer.FirmwareLoadFailed ? Failed(Reason::FirmwareFailed) : kGood; }

}  // namespace

Outcome LoadFirmware(const std::string& path, bool sendStartByte) {
  const auto image = ReadImage(path);
  TheAppState().writer.FirmwareLoadFailed = !image || !Transfer(path, sendStartByte, *image);
  return LastLoad();
}

Outcome SelectFirmware(std::uint32_t chipCode) {
  AppState& app = TheAppState();
  const auto firmware = FirmwareFor(chipCode, app.writer.WriterModel);
  const auto image = firmware ? ReadWholeFile(firmware->path) : std::nullopt;
  if (!image || image->size() <= address::kFirmwareVersion) {
    app.writer.FirmwareLoadFailed = true;
    return LastLoad();
  }
  const auto version = static_cast<std::int8_t>((*image)[address::kFirmwareVersion]);
  if (app.writer.FirmwareCode != firmware->FirmwareCode) {
    LoadFirmware(firmware->path, true);
    app.writer.FirmwareCode = firmware->FirmwareCode;
    WaitMs(kRestartMs);
  } else if (app.writer.FirmwareVersion < version || app.writer.FirmwareLevel != kHostFirmwareLevel) {
    LoadFirmware(firmware->path, true);
    app.writer.FirmwareVersion = static_cast<std::uint8_t>(version);
    app.writer.FirmwareLevel = kHostFirmwareLevel;
    WaitMs(kRestartMs);
  }
  return LastLoad();
}

Outcome OnUpdateFirmware() {
  Operator& op = *TheMachine().op;
  const auto path = op.ChooseFile(
      {FileKind::Firmware, "Kestrel Nce Files (*.nce)|*.nce||", FirmwareFolder(TheAppState().writer.WriterModel)});
  if (!path) return Cancelled(Reason::NoFile);
  PumpPaint();
  const BusyCursor busy(kLoadCursor);
  const auto image = ReadForUpdate(*path);
  // A file without a byte there can't be an image of either model.
  if (!image || image->size() <= address::kModel || RefusesImage((*image)[address::kModel])) {
    op.Tell(Printf(kOpenFileError, path->c_str()), kPlainCaption);
    return Refused(Reason::NotReadable);
  }
  const Outcome outcome = LoadFirmware(*path, true);
  op.Tell(outcome.Good() ? "Update Firmware Ok" : kUpdateFirmwareFail);
  return outcome;
}

}  // namespace pyxis
