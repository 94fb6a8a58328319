#include "link/writer_link.h"

#include "platform/diagnostics.h"
#include "platform/machine.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr int kConfiguration = 1;
constexpr int kInterface = 0;
constexpr int kTimeout = 0;

constexpr char kReadPipeName[] = "PIPE00";
constexpr char kWritePipeName[] = "PIPE01";

WriterLink theWriterLink;

UsbHost& Usb() { return *TheMachine().usb; }

void CloseLibusb() {
  if (theWriterLink.LibusbHandle != nullptr) Usb().Close(theWriterLink.LibusbHandle);
  theWriterLink.LibusbHandle = nullptr;
  TheAppState().writer.UseLibusb = false;
}

// The first device with the writer's numbers, in bus order; true when there is one, and it has been opened.
bool OpenFirstWriter() {
  for (const UsbBus& bus : Usb().FindDevices())
    for (const UsbDeviceEntry& entry : bus) {
      if (entry.vendor != kWriterVendor || entry.product != kWriterProduct) continue;
      theWriterLink.LibusbHandle = Usb().Open(entry);  // a failure shows at the next call
      TheAppState().writer.UseLibusb = true;
      return true;
    }
  return false;
}

// The device is claimed by one handle at a time, so one that is still open goes first.
bool OpenLibusb() {
  CloseLibusb();
  if (!OpenFirstWriter()) return false;
  if (Usb().SetConfiguration(theWriterLink.LibusbHandle, kConfiguration) < 0) {
    Trace("error setting config #%d: %s\n", kConfiguration, Usb().Error().c_str());
    CloseLibusb();
    return false;
  }
  Trace("success: set configuration #%d\n", kConfiguration);
  if (Usb().ClaimInterface(theWriterLink.LibusbHandle, kInterface) < 0) {
    Trace("error claiming interface #%d:\n%s\n", kInterface, Usb().Error().c_str());
    CloseLibusb();
    return false;
  }
  Trace("success: claim_interface #%d\n", kInterface);
  return true;
}

// The first interface that opens; the trial handle is closed at once, since only the path is wanted.
bool FindDevicePath() {
  DevicePipes& pipes = *TheMachine().pipes;
  for (const std::string& path : pipes.InterfacePaths()) {
    theWriterLink.DevicePath = path;
    Trace("Attempting to open %s\n", path.c_str());
    int error = 0;
    if (const DevicePipes::Handle trial = pipes.Open(path, error); trial != nullptr) {
      pipes.Close(trial);
      return true;
    }
    Trace("FAILED to open %s\n", path.c_str());
  }
  return false;
}

DevicePipes::Handle OpenPipe(const char* name) {
  if (!FindDevicePath()) {
    Trace("Failed to GetUsbDeviceFileName\n");
    return nullptr;
  }
  theWriterLink.DevicePath += std::string("\\") + name;
  const char* path = theWriterLink.DevicePath.c_str();
  Trace("completeDeviceName = (%s)\n", path);
  int error = 0;
  const DevicePipes::Handle handle = TheMachine().pipes->Open(theWriterLink.DevicePath, error);
  if (handle != nullptr) {
    Trace("Opened successfully.\n");
  } else {
    Trace("Failed to open (%s) = %d", path, error);
  }
  return handle;
}

bool PipesOpen() { return theWriterLink.ReadPipe != nullptr && theWriterLink.WritePipe != nullptr; }

void ClosePipe(DevicePipes::Handle& pipe) {
  if (pipe != nullptr) TheMachine().pipes->Close(pipe);
  pipe = nullptr;
}

}  // namespace

WriterLink& TheWriterLink() { return theWriterLink; }

void ResetWriterLink() { theWriterLink = WriterLink{}; }

int OpenWriterLink() {
  if (PipesOpen()) return 1;
  if (OpenLibusb()) return 1;
  if (!TheMachine().pipes->Exist()) return 0;
  theWriterLink.ReadPipe = OpenPipe(kReadPipeName);
  theWriterLink.WritePipe = OpenPipe(kWritePipeName);
  return PipesOpen() ? 1 : 0;
}

void CloseWriterLink() {
  ClosePipe(theWriterLink.ReadPipe);
  ClosePipe(theWriterLink.WritePipe);
  CloseLibusb();
}

bool FrameLinkOpen() { return TheAppState().writer.UseLibusb || PipesOpen(); }

bool LinkWrite(const std::uint8_t* data, std::uint32_t count) {
  if (!TheAppState().writer.UseLibusb) return TheMachine().pipes->Write(theWriterLink.WritePipe, data, count);
  const int result = Usb().BulkWrite(theWriterLink.LibusbHandle, kEndpointOut, data, static_cast<int>(count), kTimeout);
  if (result < 0) {
    Trace("error writing:\n%s\n", Usb().Error().c_str());
    return false;
  }
  Trace("success: bulk write %d bytes\n", result);
  return true;
}

bool LinkRead(std::uint8_t* buffer, std::uint32_t count) {
  if (!TheAppState().writer.UseLibusb) return TheMachine().pipes->Read(theWriterLink.ReadPipe, buffer, count);
  const int result = Usb().BulkRead(theWriterLink.LibusbHandle, kEndpointIn, buffer, static_cast<int>(count), kTimeout);
  if (result < 0) {
    Trace("error reading:\n%s\n", Usb().Error().c_str());
    return false;
  }
  Trace("success: bulk read %d bytes\n", result);
  return true;
}

}  // namespace pyxis
