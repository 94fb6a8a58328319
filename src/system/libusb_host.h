// The USB calls over the real libusb, its 0.1 interface. There a time-out of 0 means for ever, so that a writer which
// stays plugged in and falls silent would hold the program. Here 0 means kLongestTransferMs; after a transfer that ran
// into it all others on that handle fail at once, until the device is closed and opened again.
#pragma once

#include "platform/usb_host.h"

namespace pyxis {

// Well above the longest transfer, the read of a whole chip.
inline constexpr int kLongestTransferMs = 2 * 60 * 1000;

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
  std::string MissingRight() override;

 private:
  int Heard(Handle handle, int result);
  Handle silent_ = nullptr;  // the device behind it didn't answer in time
};

}  // namespace pyxis
