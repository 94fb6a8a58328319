#include "link/identification.h"

#include <string_view>

#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "platform/machine.h"
#include "platform/vendor_api.h"
#include "shell/app_state.h"

namespace pyxis {

namespace {

constexpr int kVendorModel = 0x9899;
constexpr int kVendorTimeout = 5;

struct KnownIdentity {
  std::string_view text;
  const char* hwFolder;
};
constexpr KnownIdentity kIdentities[] = {
    {"PYX STANDALONE LOADER_V1.1", "hwversion1.1"},
    {"PYX STANDALONE LOADER_V1.0", "hwversion1.0"},
    {"PYX STANDALONE LOADER_V2.0", "hwversion1.1"},
};
constexpr char kUnknownHwFolder[] = "hwversion1.0";

std::uint32_t PeekBe16(std::uint16_t address) {
  const std::uint32_t high = PeekByte(address);
  return high << 8 | PeekByte(static_cast<std::uint16_t>(address + 1));
}

}  // namespace

bool VendorWriterAnswers() { return TheMachine().vendor->VMOpen(kVendorModel, 0, 0) == 0; }

bool OpenVendorTransport() {
  AppState& app = TheAppState();
  if (!VendorWriterAnswers()) return false;
  app.UseVendorApi = 1;
  app.WriterConnected = 1;
  TheMachine().vendor->VMSetTimeout(kVendorTimeout);
  return true;
}

void OpenTransport() {
  if (!OpenVendorTransport()) TheAppState().WriterConnected = static_cast<std::uint32_t>(OpenWriterLink());
}

void CloseTransport() {
  if (TheAppState().UseVendorApi != 0) {
    TheMachine().vendor->VMClose();
  } else {
    CloseWriterLink();
  }
}

void ReadIdentityText(std::array<char, kIdentitySize + 1>& text) {
  text.fill('\0');
  const auto buffer = reinterpret_cast<std::uint8_t*>(text.data());
  if (TheAppState().UseVendorApi != 0) {
    TheMachine().vendor->VMRead(OP_IDENTITY, buffer, kIdentitySize);
  } else {
    ReadIdentity(buffer);
  }
}

void ReadWriterIdentity() {
  ReadIdentityText(TheAppState().WriterIdentityText);
  IdentifyWriter();
}

void IdentifyWriter() {
  AppState& app = TheAppState();
  app.HwFolder = kUnknownHwFolder;
  app.HwKnown = 0;
  for (const KnownIdentity& known : kIdentities) {
    if (known.text != app.WriterIdentityText.data()) continue;
    app.HwFolder = known.hwFolder;
    app.HwKnown = 1;
    return;
  }
}

void ReadFirmwareBytes() {
  AppState& app = TheAppState();
  app.FirmwareCode = PeekBe16(address::kFirmwareCode);
  app.FirmwareVersion = PeekByte(address::kFirmwareVersion);
  app.FirmwareLevel = PeekBe16(address::kFirmwareLevel);
  SetWriterMode(mode::kIdle);
}

}  // namespace pyxis
