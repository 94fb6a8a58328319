// The calls of the libusb 0.1 interface that the frame link uses, one for one. Results are the library's: negative is
// an error, otherwise a count or 0.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pyxis {

// The writer's numbers.
inline constexpr std::uint16_t kWriterVendor = 0x7A31;
inline constexpr std::uint16_t kWriterProduct = 0x1602;
// Its two bulk end points.
inline constexpr std::uint8_t kEndpointOut = 0x02;
inline constexpr std::uint8_t kEndpointIn = 0x81;

struct UsbDeviceEntry {
  std::uint16_t vendor = 0;
  std::uint16_t product = 0;
  void* device = nullptr;  // belongs to the host
};
using UsbBus = std::vector<UsbDeviceEntry>;

class UsbHost {
 public:
  using Handle = void*;
  virtual ~UsbHost() = default;
  // usb_init, usb_find_busses, usb_find_devices, usb_get_busses: the buses in list order, each with its devices in
  // list order. The entries live until the next call.
  virtual std::vector<UsbBus> FindDevices() = 0;
  virtual Handle Open(const UsbDeviceEntry& device) = 0;
  virtual int SetConfiguration(Handle handle, int configuration) = 0;
  virtual int ClaimInterface(Handle handle, int interface) = 0;
  virtual int BulkWrite(Handle handle, int endpoint, const std::uint8_t* data, int count, int timeout) = 0;
  virtual int BulkRead(Handle handle, int endpoint, std::uint8_t* data, int count, int timeout) = 0;
  virtual void Close(Handle handle) = 0;
  virtual std::string Error() = 0;
  // What the operator can do about a writer that is plugged in but that this user may not open, in words; else empty.
  virtual std::string MissingRight() { return {}; }
};

}  // namespace pyxis
