// The USB calls over the real libusb, its 0.1 interface.
#pragma once

#include "platform/usb_host.h"

namespace pyxis {

class LibusbHost : public UsbHost {
 public:
  std::vector<UsbBus> FindDevices() override;
  Handle Open(const UsbDeviceEntry& device) override;
  int SetConfiguration(Handle handle, int configuration) override;
  int ClaimInterface(Handle handle, int interface) override;
  int BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int timeout) override;
  int BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int timeout) override;
  void Close(Handle handle) override;
  std::string Error() override;
};

}  // namespace pyxis
