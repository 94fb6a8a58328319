// Links that die in the middle of an operation.
#include "link/identification.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/firmware.h"
#include "operations/run_task.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

// Each read takes a while and brings a status, or ' ' nothing; the last of them repeats.
class SlowWriter : public SilentVendor {
 public:
  SlowWriter(FakeClock& clock, std::uint32_t milliseconds, const char* statuses)
      : clock_(clock), milliseconds_(milliseconds), next_(statuses) {}
  int count = 0;
  int VMRead(std::uint8_t, std::uint8_t* buffer, std::uint32_t) override {
    ++count;
    clock_.tick += milliseconds_;
    const char status = *next_;
    if (next_[1] != '\0') ++next_;
    if (status == ' ') return -1;
    *buffer = static_cast<std::uint8_t>(status - '0');
    return 0;
  }

 private:
  FakeClock& clock_;
  std::uint32_t milliseconds_;
  const char* next_;
};

class Verdicts : public Bench {};

TEST_F(Verdicts, LostReadsAreBoundedByTime) {
  // clang-format off
  for (const auto& [why, milliseconds, statuses, good, reads] : Table<const char*, std::uint32_t, const char*, bool, int>{
           {"a cable pulled", 0, "0 ", false, 1002}, {"each a time-out", 5000, "0 ", false, 3},
           {"one late answer", 120000, "0 111111", true, 8}, {"good ones between", 900, " 0 0 0 0111111", true, 14},
           {"one lost too many", 500, "0  0   111111", false, 7}, {"no verdict", 60000, "0", false, 30}}) {
    // clang-format on
    SlowWriter writer(clock, milliseconds, statuses);
    TheMachine().vendor = &writer;
    OpenTransport();
    EXPECT_EQ(RunTask(16, 1).Good(), good) << why;
    EXPECT_EQ(writer.count, reads) << why;
  }
}

// Zeros are what a buffer holds that nothing has come into: a link that dies before the last byte of the read-back must
// not pass for one that brought them.
class LostReadBack : public BothTransports {
 protected:
  // Whether the load is good when the link is lost after `transfers`; afterwards `left` tells how many weren't used.
  bool GoodAfter(int transfers) {
    StartTask(firmware ? task::kOpenFirmwareLoad : task::kOpenPackageLoad);
    if (!firmware) SendControl(control::kBeginLoad);
    writer.faults.disconnectAfter = transfers;
    const bool good =
        (firmware ? LoadFirmware(Path("zeros"), false) : DownloadPackageFile(Path("zeros"), area::kData)).Good();
    left = *writer.faults.disconnectAfter;
    writer.faults.disconnectAfter.reset();
    CloseTransport();
    usb.pluggedIn = vendor.pluggedIn = true;
    OpenTransport();
    if (!firmware || !good) SendControl(control::kEndLoad);
    return good;
  }
  bool firmware = false;
  int left = 0;
};

TEST_P(LostReadBack, OfZerosIsNoGoodTransfer) {
  Write("zeros", Bytes(kFirmwareImageSize, 0));
  for (const auto& [withFirmware, closingCommands] : Table<bool, int>{{false, 1}, {true, 2}}) {
    firmware = withFirmware;
    SCOPED_TRACE(firmware);
    constexpr int kEnough = 100000;
    ASSERT_TRUE(GoodAfter(kEnough));
    // On frames the read ends with its status block, and a command takes three transfers.
    const int behindTheRead = GetParam() == Transport::Usb ? 1 + 3 * closingCommands : closingCommands;
    const int read = kEnough - left - behindTheRead;
    for (const int transfers : {0, read / 2, read - 1}) EXPECT_FALSE(GoodAfter(transfers)) << transfers;
    EXPECT_TRUE(GoodAfter(read));
  }
}
INSTANTIATE_TEST_SUITE_P(BothTransports, LostReadBack, kBothTransports);

}  // namespace
}  // namespace pyxis::test
