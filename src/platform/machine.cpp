#include "platform/machine.h"

#include "platform/clock.h"
#include "platform/device_pipes.h"
#include "platform/language.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/profile.h"
#include "platform/update_agent.h"
#include "platform/usb_host.h"
#include "platform/vendor_api.h"

namespace pyxis {

namespace {

constexpr int kNothing = -1;  // of a transfer; a negative result is an error

class NoOperator : public Operator {
  void Tell(const std::string&, const std::string&, MessageIcon) override {}
  bool Ask(const std::string&, const std::string&, MessageIcon) override { return false; }
  std::optional<std::string> ChooseFile(const FileQuestion&) override { return std::nullopt; }
};

// Every look moves it on by a millisecond, so that a wait on it ends.
class NoClock : public Clock {
  std::uint32_t TickCount() override { return ++tick_; }
  LocalTime Now() override { return {}; }
  std::uint32_t tick_{};
};

class NoUsb : public UsbHost {
  std::vector<UsbBus> FindDevices() override { return {}; }
  Handle Open(const UsbDeviceEntry&) override { return nullptr; }
  int SetConfiguration(Handle, int) override { return kNothing; }
  int ClaimInterface(Handle, int) override { return kNothing; }
  int BulkWrite(Handle, int, const std::uint8_t*, int, int) override { return kNothing; }
  int BulkRead(Handle, int, std::uint8_t*, int, int) override { return kNothing; }
  void Close(Handle) override {}
  std::string Error() override { return "no USB"; }
};

class NoPipes : public DevicePipes {
  bool Exist() const override { return false; }
  std::vector<std::string> InterfacePaths() override { return {}; }
  Handle Open(const std::string&, int&) override { return nullptr; }
  bool Write(Handle, const std::uint8_t*, std::uint32_t) override { return false; }
  bool Read(Handle, std::uint8_t*, std::uint32_t) override { return false; }
  void Close(Handle) override {}
};

class NoVendor : public VendorApi {
  int VMOpen(int, int, int) override { return kVendorLibraryMissing; }
  void VMSetTimeout(int) override {}
  void VMClose() override {}
  int VMWrite(std::uint8_t, const std::uint8_t*, std::uint32_t) override { return kVendorLibraryMissing; }
  int VMRead(std::uint8_t, std::uint8_t*, std::uint32_t) override { return kVendorLibraryMissing; }
};

class NoProfile : public Profile {
  int GetProfileInt(const std::string&, const std::string&, int defaultValue) override { return defaultValue; }
  void WriteProfileInt(const std::string&, const std::string&, int) override {}
};

class NoLanguage : public Language {
  std::uint16_t GetSystemDefaultLangID() override { return 0x0400; }
};

class NoUpdate : public UpdateAgent {
  std::int32_t CallUpdateAgent(const char*) override { return kUpdateAgentMissing; }
};

NoOperator noOperator;
NoClock noClock;
MainView noView;
NoUsb noUsb;
NoPipes noPipes;
NoVendor noVendor;
NoProfile noProfile;
NoLanguage noLanguage;
NoUpdate noUpdate;

Machine Nothing() {
  return {.op = &noOperator,
          .clock = &noClock,
          .view = &noView,
          .usb = &noUsb,
          .pipes = &noPipes,
          .vendor = &noVendor,
          .profile = &noProfile,
          .language = &noLanguage,
          .update = &noUpdate,
          .diagnostics = stdout,
          .trace = stdout};
}

Machine theMachine = Nothing();

}  // namespace

Machine& TheMachine() { return theMachine; }

void ResetMachine() {
  noClock = NoClock();
  theMachine = Nothing();
}

}  // namespace pyxis
