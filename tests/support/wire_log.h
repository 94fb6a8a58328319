// A USB bus that records what goes out and answers reads from a script.
#pragma once

#include <deque>

#include "platform/usb_host.h"
#include "platform/vendor_api.h"
#include "support/bench.h"

namespace pyxis::test {

std::string Hex(const std::uint8_t* data, std::size_t count);

class WireLog : public UsbHost {
 public:
  // Some share one of the writer's two numbers.
  std::vector<UsbBus> buses{{{0x1D6B, 0x1602, nullptr}, {0x7A31, 0x1603, nullptr}},
                            {{0x7A31, 0x1602, &first_}, {0x7A31, 0x1602, &second_}}};
  int configurationResult = 0, claimResult = 0;
  Texts calls;                            // "open 1", "close"
  Texts wire;                             // "> 55 53 …", "< 13"
  std::deque<Bytes> reads;                // data of the next reads; zeros when empty
  int failWriteAt = -1, failReadAt = -1;  // this write or read, from 0, fails

  std::vector<UsbBus> FindDevices() override;
  Handle Open(const UsbDeviceEntry& device) override;
  int SetConfiguration(Handle, int) override { return configurationResult; }
  int ClaimInterface(Handle, int) override { return claimResult; }
  int BulkWrite(Handle, int endpoint, const std::uint8_t* data, int count, int timeout) override;
  int BulkRead(Handle, int endpoint, std::uint8_t* data, int count, int timeout) override;
  void Close(Handle) override { calls.push_back("close"); }
  std::string Error() override { return "broken"; }

 private:
  char first_ = 0, second_ = 0;
  int writes_ = 0, readCount_ = 0;
};

// A writer behind velmarapi that takes everything; tests override what it answers.
class SilentVendor : public VendorApi {
 public:
  int openResult = 0;
  int VMOpen(int, int, int) override { return openResult; }
  void VMSetTimeout(int) override {}
  void VMClose() override {}
  int VMWrite(std::uint8_t, const std::uint8_t*, std::uint32_t) override { return 0; }
  int VMRead(std::uint8_t, std::uint8_t*, std::uint32_t) override { return 0; }
};

}  // namespace pyxis::test
