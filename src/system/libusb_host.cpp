#include "system/libusb_host.h"

#include <usb.h>

#include <cerrno>

#include "system/writer_access.h"

namespace pyxis {

namespace {

constexpr int kNoTransfer = -1;

usb_dev_handle* Native(UsbHost::Handle handle) { return static_cast<usb_dev_handle*>(handle); }

int Milliseconds(int timeout) { return timeout == 0 ? kLongestTransferMs : timeout; }

}  // namespace

std::vector<UsbBus> LibusbHost::FindDevices() {
  usb_init();
  usb_find_busses();
  usb_find_devices();
  std::vector<UsbBus> buses;
  for (struct usb_bus* bus = usb_get_busses(); bus != nullptr; bus = bus->next) {
    UsbBus& entries = buses.emplace_back();
    for (struct usb_device* device = bus->devices; device != nullptr; device = device->next)
      entries.push_back({device->descriptor.idVendor, device->descriptor.idProduct, device});
  }
  return buses;
}

UsbHost::Handle LibusbHost::Open(const UsbDeviceEntry& entry) {
  return usb_open(static_cast<struct usb_device*>(entry.device));
}

// The library doesn't test its handle: a device that couldn't be opened has none.
int LibusbHost::SetConfiguration(Handle handle, int configuration) {
  return handle == nullptr ? kNoTransfer : usb_set_configuration(Native(handle), configuration);
}

int LibusbHost::ClaimInterface(Handle handle, int interface) {
  return handle == nullptr ? kNoTransfer : usb_claim_interface(Native(handle), interface);
}

int LibusbHost::BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int timeout) {
  if (handle == nullptr || handle == silent_) return kNoTransfer;
  const auto bytes = reinterpret_cast<const char*>(data);
  return Heard(handle, usb_bulk_write(Native(handle), endpoint, bytes, count, Milliseconds(timeout)));
}

int LibusbHost::BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int timeout) {
  if (handle == nullptr || handle == silent_) return kNoTransfer;
  const auto bytes = reinterpret_cast<char*>(data);
  return Heard(handle, usb_bulk_read(Native(handle), endpoint, bytes, count, Milliseconds(timeout)));
}

int LibusbHost::Heard(Handle handle, int result) {
  if (result == -ETIMEDOUT) silent_ = handle;
  return result;
}

void LibusbHost::Close(Handle handle) {
  if (handle == nullptr) return;
  if (handle == silent_) silent_ = nullptr;
  usb_close(Native(handle));
}

std::string LibusbHost::Error() { return usb_strerror(); }

std::string LibusbHost::MissingRight() { return MissingRightWords(); }

}  // namespace pyxis
