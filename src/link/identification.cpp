#include "link/identification.h"

#include <string_view>

#include "link/transport.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "platform/machine.h"
#include "platform/program_folder.h"
#include "platform/vendor_api.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr int kVendorTimeout = 5;

struct KnownIdentity {
  std::string_view text;
  const char* hwFolder;
};
constexpr KnownIdentity kIdentities[] = {
    {"PYX STANDALONE LOADER_V1.1", kHwFolder11},
    {"PYX STANDALONE LOADER_V1.0", kHwFolder10},
    {"PYX STANDALONE LOADER_V2.0", kHwFolder11},
};

std::uint32_t PeekBe16(std::uint16_t address) {
  const std::uint32_t high = PeekByte(address);
  return high << 8 | PeekByte(static_cast<std::uint16_t>(address + 1));
}

}  // namespace

bool VendorWriterAnswers() { return TheMachine().vendor->VMOpen(kVendorModel, 0, 0) == 0; }

bool OpenVendorTransport() {
  AppState& app = TheAppState();
  if (!VendorWriterAnswers()) return false;
  app.writer.UseVendorApi = true;
  app.writer.WriterConnected = true;
  TheMachine().vendor->VMSetTimeout(kVendorTimeout);
  return true;
}

void ReopenVendorTransport() {
  TheMachine().vendor->VMClose();
  if (!OpenVendorTransport()) TheAppState().writer.UseVendorApi = false;
}

void OpenFrameTransport() { TheAppState().writer.WriterConnected = OpenWriterLink() != 0; }

void OpenTransport() {
  if (!OpenVendorTransport()) OpenFrameTransport();
}

void CloseTransport() { ActiveTransport().Close(); }

void ReadIdentityText(std::array<char, kIdentitySize + 1>& text) {
  text.fill('\0');
  ActiveTransport().ReadIdentity(std::span(reinterpret_cast<std::uint8_t*>(text.data()), kIdentitySize));
}

void ReadWriterIdentity() {
  ReadIdentityText(TheAppState().writer.WriterIdentityText);
  IdentifyWriter();
}

void IdentifyWriter() {
  AppState& app = TheAppState();
  app.writer.HwFolder = kHwFolder10;
  app.writer.HwKnown = false;
  for (const KnownIdentity& known : kIdentities) {
    if (known.text != app.writer.WriterIdentityText.data()) continue;
    app.writer.HwFolder = known.hwFolder;
    app.writer.HwKnown = true;
    return;
  }
}

void ReadFirmwareBytes() {
  AppState& app = TheAppState();
  app.writer.FirmwareCode = PeekBe16(address::kFirmwareCode);
  app.writer.FirmwareVersion = PeekByte(address::kFirmwareVersion);
  app.writer.FirmwareLevel = PeekBe16(address::kFirmwareLevel);
  SetWriterMode(mode::kIdle);
}

}  // namespace pyxis
