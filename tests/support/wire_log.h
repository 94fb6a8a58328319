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
  std::vector<UsbBus> buses{{{0x1D6B, 2, nullptr}}, {{0x7A31, 0x1602, &first_}, {0x7A31, 0x1602, &second_}}};
  int configurationResult = 0, claimResult = 0;
  std::vector<std::string> calls;               // "open 1", "close"
  std::vector<std::string> wire;                // "> 55 53 …", "< 13"
  std::deque<std::vector<std::uint8_t>> reads;  // data of the next reads; zeros when empty
  int failWriteAt = -1, failReadAt = -1;        // this write or read, from 0, fails

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

class VendorLog : public VendorApi {
 public:
  int openResult = 0;
  std::vector<std::string> calls;
  std::deque<std::vector<std::uint8_t>> reads;

  int VMOpen(int model, int a, int b) override;
  void VMSetTimeout(int timeout) override { calls.push_back("timeout " + std::to_string(timeout)); }
  void VMClose() override { calls.push_back("close"); }
  int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) override;
  int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) override;
};

// A bench whose writer, behind velmarapi, answers what the test scripts.
class ScriptedWriter : public Bench {
 protected:
  ScriptedWriter();
  VendorLog vendor;
};

}  // namespace pyxis::test
