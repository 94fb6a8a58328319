#include "operations/download.h"

#include <algorithm>
#include <vector>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/transfer_steps.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kSettleMs = 1500;

// Positions of the bar with velmarapi.
namespace bar {
constexpr int kStart = 5;
constexpr int kBeforeOption = 21;
constexpr int kAfterOption = 53;
constexpr int kClosed = 85;
constexpr int kDone = 101;
}  // namespace bar

}  // namespace

std::vector<std::uint8_t> DiffersFrom(std::span<const std::uint8_t> sent, std::size_t length) {
  std::vector<std::uint8_t> bytes(length);
  const std::size_t common = std::min(sent.size(), length);
  std::transform(sent.begin(), sent.begin() + static_cast<std::ptrdiff_t>(common), bytes.begin(),
                 [](std::uint8_t byte) { return static_cast<std::uint8_t>(~byte); });
  return bytes;
}

namespace {

// An empty file still sends its block of length 0, which needs a buffer to point to.
void SendToArea(std::span<const std::uint8_t> bytes) {
  static const std::uint8_t nothing = 0;
  const TransferProgress progress;
  WriteCommand(OP_WRITE_AREA, bytes.empty() ? std::span(&nothing, 0) : bytes);
}

std::vector<std::uint8_t> ReadFromArea(std::span<const std::uint8_t> sent, std::size_t length) {
  // One spare byte: a transfer of nothing needs a buffer to point to.
  std::vector<std::uint8_t> received = DiffersFrom(sent, length + 1);
  {
    const TransferProgress progress;
    ReadCommand(OP_READ_AREA, std::span(received).first(length));
  }
  received.pop_back();
  return received;
}

}  // namespace

Outcome DownloadPackageFile(const std::string& path, std::uint8_t areaSelector) {
  StopFrameProgress();
  SetWriterMode(mode::kArea);
  const File file = OpenForUpdate(path);  // Read sends an installed template
  if (!file) {
    TellOpenFail(path);
    return Failed(Reason::NotReadable);
  }
  std::vector<std::uint8_t> sent;
  if (!ReadStream(file.get(), sent) || sent.size() > kTransferBufferSize) return Failed(Reason::NotReadable);
  std::vector<std::uint8_t> received;
  {
    const OpenArea open(areaSelector);
    SendToArea(sent);
    received = ReadFromArea(sent, static_cast<std::size_t>(std::max(FileLength(file.get()), 0L)));
  }
  return ReadStream(file.get(), sent) && sent == received ? kGood : Failed(Reason::Different);
}

void OpenPackageLoad() {
  StartTask(task::kOpenPackageLoad);
  SendControl(control::kBeginLoad);
}

void CloseLoad() {
  SetWriterMode(mode::kIdle);
  SendControl(control::kEndLoad);
}

Outcome RewriteOptionArea(const std::string& path) {
  OpenPackageLoad();
  const Outcome outcome = DownloadPackageFile(path, area::kOption);
  CloseLoad();
  return outcome;
}

namespace {

// The data package behind an option package that has arrived, and the end of the load.
Outcome SendDataPackage(const TransferSteps& steps) {
  steps.Show(bar::kAfterOption);
  const bool good = DownloadPackageFile(DataPackagePath(), area::kData).Good();
  if (good) SetWriterMode(mode::kIdle);
  SendControl(control::kEndLoad);
  if (good) steps.Show(bar::kClosed);
  WaitMs(kSettleMs);
  if (good) steps.Show(bar::kDone);
  return good ? kGood : Failed(Reason::DataNotArrived);
}

Outcome SendPackages() {
  const TransferSteps steps;
  steps.Show(bar::kStart);
  OpenPackageLoad();
  steps.Show(bar::kBeforeOption);
  if (DownloadPackageFile(OptionPackagePath(), area::kOption).Good()) return SendDataPackage(steps);
  SendControl(control::kEndLoad);
  return Failed(Reason::OptionNotArrived);
}

}  // namespace

Outcome DownloadPackages() {
  const Outcome outcome = SendPackages();
  TheMachine().op->Tell(outcome.Good() ? "Loading Data Ok" : "Loading Data Fail");
  TheMachine().view->HexViewChanged();
  return outcome;
}

}  // namespace pyxis
