// The two lower transports: libusb by vendor and product number, and the pipes of the device-interface driver.
#pragma once

#include <cstdint>
#include <string>

#include "platform/device_pipes.h"
#include "platform/usb_host.h"

namespace pyxis {

struct WriterLink {
  DevicePipes::Handle ReadPipe = nullptr;
  DevicePipes::Handle WritePipe = nullptr;
  UsbHost::Handle LibusbHandle = nullptr;
  std::string DevicePath;
};

WriterLink& TheWriterLink();
void ResetWriterLink();

// 1 when a frame link is open, else 0. Leaves either UseLibusb set with LibusbHandle open, or the pipes.
int OpenWriterLink();
// Closes whatever is open; safe in any state.
void CloseWriterLink();
// UseLibusb is set, or both pipes are open.
bool FrameLinkOpen();

// One transfer each. True when the library or the system reported no error; a short count is no failure.
bool LinkWrite(const std::uint8_t* data, std::uint32_t count);
bool LinkRead(std::uint8_t* buffer, std::uint32_t count);

}  // namespace pyxis
