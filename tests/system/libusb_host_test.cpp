// The body over libusb, against a library whose functions stand here: the linker prefers them to those of the real one.
#include "system/libusb_host.h"

#include <usb.h>

#include <cerrno>
#include <deque>

#include "link/writer_link.h"
#include "platform/text.h"
#include "shell/start_up.h"
#include "support/bench.h"

struct usb_dev_handle {
  int number;
};

namespace pyxis::test {
namespace {

struct FakeLibusb {
  Texts calls;
  std::deque<int> results;  // of the transfers to come; behind them the last one repeats
  long long waited = 0;     // milliseconds that transfers have run into their time-outs
  usb_dev_handle handle{1};
  bool opens = true;

  int Call(const std::string& call) { return calls.push_back(call), 0; }
  int Transfer(const std::string& call, int count, int timeout) {
    Call(call + Printf(" %d, %d ms", count, timeout));
    const int result = results.empty() ? count : results.front();
    if (results.size() > 1) results.pop_front();
    if (result == -ETIMEDOUT) waited += timeout;
    return result;
  }
};
FakeLibusb* fake = nullptr;

}  // namespace
}  // namespace pyxis::test

using pyxis::Printf;
using pyxis::test::fake;

extern "C" {
static struct usb_device hub, writer;
static struct usb_bus empty, full;

void usb_init() { fake->Call("init"); }
int usb_find_busses() { return fake->Call("busses"); }
int usb_find_devices() { return fake->Call("devices"); }
struct usb_bus* usb_get_busses() {
  hub.descriptor.idVendor = 0x1D6B;
  writer.descriptor.idVendor = 0x7A31;
  writer.descriptor.idProduct = 0x1602;
  hub.next = &writer;
  full.devices = &hub;
  empty.next = &full;
  return &empty;
}
usb_dev_handle* usb_open(struct usb_device* device) {
  fake->Call(device == &writer ? "open writer" : "open another");
  return fake->opens ? &fake->handle : nullptr;
}
int usb_close(usb_dev_handle* handle) { return fake->Call(Printf("close %d", handle->number)); }
int usb_set_configuration(usb_dev_handle*, int value) { return 5 + fake->Call(Printf("set %d", value)); }
int usb_claim_interface(usb_dev_handle*, int value) { return 6 + fake->Call(Printf("claim %d", value)); }
int usb_bulk_write(usb_dev_handle*, int endpoint, const char* data, int count, int timeout) {
  return fake->Transfer(Printf("write %d: %d...", endpoint, *data), count, timeout);
}
int usb_bulk_read(usb_dev_handle*, int endpoint, char* data, int count, int timeout) {
  *data = 77;
  return fake->Transfer(Printf("read %d:", endpoint), count, timeout);
}
char* usb_strerror() {
  static char text[] = "told by the library";
  return text;
}
}

namespace pyxis::test {
namespace {

class Libusb : public Bench {
 protected:
  Libusb() { fake = &library; }
  ~Libusb() override { fake = nullptr; }
  Texts Calls() { return std::exchange(library.calls, {}); }
  FakeLibusb library;
  LibusbHost usb;
  std::uint8_t data[600] = {9};
};

TEST_F(Libusb, EachCallIsTheLibrarysOwn) {
  const std::vector<UsbBus> buses = usb.FindDevices();
  ASSERT_EQ(All(buses.size(), buses[0].size(), buses[1].size()), All(2U, 0U, 2U));
  EXPECT_EQ(All(buses[1][0].vendor, buses[1][1].vendor, buses[1][1].product), All(0x1D6B, 0x7A31, 0x1602));
  const UsbHost::Handle handle = usb.Open(buses[1][1]);
  EXPECT_EQ(usb.SetConfiguration(handle, 1), 5);
  EXPECT_EQ(usb.ClaimInterface(handle, 0), 6);
  EXPECT_EQ(usb.BulkWrite(handle, 2, data, 13, 0), 13);
  EXPECT_EQ(usb.BulkRead(handle, 0x81, data, 600, 40), 600);
  EXPECT_EQ(data[0], 77);
  usb.Close(handle);
  EXPECT_EQ(usb.Error(), "told by the library");
  EXPECT_EQ(Calls(), (Texts{"init", "busses", "devices", "open writer", "set 1", "claim 0",
                            "write 2: 9... 13, 120000 ms", "read 129: 600, 40 ms", "close 1"}));
  // A device that doesn't open takes no calls.
  library.opens = false;
  const UsbHost::Handle none = usb.Open(buses[1][1]);
  Calls();
  EXPECT_TRUE(usb.SetConfiguration(none, 1) < 0 && usb.ClaimInterface(none, 0) < 0);
  EXPECT_TRUE(usb.BulkWrite(none, 2, data, 13, 0) < 0 && usb.BulkRead(none, 0x81, data, 13, 0) < 0);
  usb.Close(none);
  EXPECT_EQ(Calls(), Texts{});
}

TEST_F(Libusb, AfterATimeOutTransfersFailAtOnceUntilTheDeviceIsOpenedAgain) {
  for (const bool writes : {true, false}) {
    const UsbHost::Handle handle = usb.Open(usb.FindDevices()[1][1]);
    const auto transfer = [&](bool write) {
      return write ? usb.BulkWrite(handle, 2, data, 13, 0) : usb.BulkRead(handle, 0x81, data, 13, 0);
    };
    library.results = {-EIO, 13, -ETIMEDOUT, 13};
    EXPECT_EQ(transfer(writes), -EIO);  // another failure leads to nothing
    EXPECT_EQ(transfer(writes), 13);
    EXPECT_LT(transfer(writes), 0);
    Calls();
    for (const bool both : {true, false}) EXPECT_LT(transfer(both), 0);
    EXPECT_EQ(Calls(), Texts{});
    usb.Close(handle);
    EXPECT_EQ(usb.Open(usb.FindDevices()[1][1]), handle);
    EXPECT_EQ(transfer(writes), 13);
    usb.Close(handle);
  }
}

// Whatever the program asks of it at its start.
TEST_F(Libusb, ASilentWriterHoldsTheStartForOneTimeOut) {
  TheMachine().usb = &usb;
  library.results = {-ETIMEDOUT};
  testing::internal::CaptureStdout();
  ASSERT_EQ(OpenWriterLink(), 1);
  IdentifyAtStart();
  CloseWriterLink();
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(library.waited, 120000);
}

}  // namespace
}  // namespace pyxis::test
