// The stand-in writer as bodies of the two transports, in the same process.
#pragma once

#include "platform/usb_host.h"
#include "platform/vendor_api.h"
#include "standin/frame_door.h"

namespace pyxis::standin {

// A bus with a strange device and the writer on it.
class StandinUsbHost : public UsbHost {
 public:
  explicit StandinUsbHost(WriterModel& model) : door_(model) {}
  bool pluggedIn = true;
  std::string missingRight;  // that the user may not open it, in words; else empty

  std::vector<UsbBus> FindDevices() override;
  Handle Open(const UsbDeviceEntry& device) override;
  int SetConfiguration(Handle handle, int configuration) override;
  int ClaimInterface(Handle handle, int interface) override;
  int BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int timeout) override;
  int BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int timeout) override;
  void Close(Handle) override { claimed_ = silent_ = false; }
  std::string Error() override { return "stand-in writer: transfer error"; }
  std::string MissingRight() override { return pluggedIn ? missingRight : std::string(); }

 private:
  int Heard(int result);
  bool claimed_ = false;  // by one handle at a time, as a kernel has it
  bool silent_ = false;   // a transfer wasn't answered: the others fail until the device is opened again
  FrameDoor door_;
};

class StandinVendorApi : public VendorApi {
 public:
  explicit StandinVendorApi(WriterModel& model) : model_(model) {}
  bool pluggedIn = true;

  int VMOpen(int model, int a, int b) override;
  void VMSetTimeout(int) override {}
  void VMClose() override { open_ = false; }
  int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) override;
  int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) override;

 private:
  bool Reachable();
  WriterModel& model_;
  bool open_ = false;
};

}  // namespace pyxis::standin
