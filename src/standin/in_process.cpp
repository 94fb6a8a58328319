#include "standin/in_process.h"

#include <algorithm>

namespace pyxis::standin {

namespace {

constexpr int kError = -1;
constexpr UsbDeviceEntry kStrangeDevice{0x1D6B, 0x0002, nullptr};

}  // namespace

std::vector<UsbBus> StandinUsbHost::FindDevices() {
  UsbBus bus{kStrangeDevice};
  if (pluggedIn) bus.push_back({kWriterVendor, kWriterProduct, this});
  return {UsbBus{}, bus};
}

UsbHost::Handle StandinUsbHost::Open(const UsbDeviceEntry& device) {
  if (!missingRight.empty()) return nullptr;
  door_.Reconnect();
  return device.device;
}

int StandinUsbHost::SetConfiguration(Handle handle, int configuration) {
  return pluggedIn && handle == this && configuration == 1 ? 0 : kError;
}

int StandinUsbHost::ClaimInterface(Handle handle, int interface) {
  if (!pluggedIn || handle != this || interface != 0 || claimed_) return kError;
  claimed_ = true;
  return 0;
}

int StandinUsbHost::BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int) {
  if (!pluggedIn || silent_ || handle != this || endpoint != kEndpointOut) return kError;
  return Heard(door_.Out(data, count));
}

int StandinUsbHost::BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int) {
  if (!pluggedIn || silent_ || handle != this || endpoint != kEndpointIn) return kError;
  return Heard(door_.In(data, count));
}

int StandinUsbHost::Heard(int result) {
  if (result == kSilent) silent_ = true;
  return result;
}

int StandinVendorApi::VMOpen(int model, int, int) {
  open_ = pluggedIn && model == kVendorModel && model_.Now() == Line::Answers;
  return open_ ? 0 : kError;
}

bool StandinVendorApi::Reachable() {
  const Line line = model_.NextTransfer();
  if (line == Line::Gone) pluggedIn = false;
  return open_ && pluggedIn && line == Line::Answers;
}

int StandinVendorApi::VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) {
  if (!Reachable()) return kError;
  model_.Write(opcode, std::span(data, length), Door::Vendor);
  return 0;
}

int StandinVendorApi::VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) {
  if (!Reachable()) return kError;
  const std::vector<std::uint8_t> answer = model_.Read(opcode, length, Door::Vendor);
  std::copy(answer.begin(), answer.end(), buffer);
  return 0;
}

}  // namespace pyxis::standin
