#include "link/command_frames.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "platform/main_view.h"
#include "support/bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

class Link : public Bench {
 protected:
  Link() {
    TheMachine().usb = &usb;
    TheMachine().vendor = &vendor;
    vendor.openResult = 1;
    testing::internal::CaptureStdout();
  }
  ~Link() override {
    if (capturing) testing::internal::GetCapturedStdout();
  }
  std::string Printed() {
    capturing = false;
    return testing::internal::GetCapturedStdout();
  }
  void OpenFrames() {
    ASSERT_EQ(OpenWriterLink(), 1);
    TheAppState().writer.HwKnown = true;
  }
  void OpenVendor() {
    vendor.openResult = 0;
    OpenTransport();
    vendor.calls.clear();
  }
  WireLog usb;
  VendorLog vendor;
  bool capturing = true;
};

TEST_F(Link, TakesTheFirstWriterInBusOrder) {
  EXPECT_EQ(OpenWriterLink(), 1);
  EXPECT_EQ(TheAppState().writer.UseLibusb, 1U);
  EXPECT_EQ(usb.calls, (Texts{"find", "open 1"}));
  CloseWriterLink();
  CloseWriterLink();
  EXPECT_EQ(usb.calls, (Texts{"find", "open 1", "close"}));
  EXPECT_EQ(TheAppState().writer.UseLibusb, 0U);
  EXPECT_EQ(Printed(), "success: set configuration #1\nsuccess: claim_interface #0\n");
}

TEST_F(Link, ADeviceThatRefusesIsGivenUp) {
  usb.configurationResult = -1;
  EXPECT_EQ(OpenWriterLink(), 0);
  usb.configurationResult = 0;
  usb.claimResult = -1;
  EXPECT_EQ(OpenWriterLink(), 0);
  EXPECT_EQ(TheAppState().writer.UseLibusb, 0U);
  EXPECT_EQ(usb.calls, (Texts{"find", "open 1", "close", "find", "open 1", "close"}));
  EXPECT_EQ(Printed(),  // and nothing of pipes, which this system doesn't have
            "error setting config #1: broken\nsuccess: set configuration #1\nerror claiming interface #0:\nbroken\n");
}

// Two interfaces, the first of which can't be opened; remembers what was opened.
class TwoPipes : public DevicePipes {
 public:
  Texts opened;
  bool writePipe = true;
  bool Exist() const override { return true; }
  Texts InterfacePaths() override { return {"busy", "dev"}; }
  Handle Open(const std::string& path, int& error) override {
    opened.push_back(path);
    error = 5;
    return path != "busy" && (writePipe || path != "dev\\PIPE01") ? this : nullptr;
  }
  bool Write(Handle, const std::uint8_t*, std::uint32_t) override { return true; }
  bool Read(Handle, std::uint8_t*, std::uint32_t) override { return true; }
  void Close(Handle) override { opened.push_back("close"); }
};

TEST_F(Link, PipesAreTheLastResort) {
  TwoPipes pipes;
  TheMachine().pipes = &pipes;
  usb.buses.clear();
  for (const bool writes : {false, true}) {
    pipes.writePipe = writes;
    pipes.opened.clear();
    EXPECT_EQ(OpenWriterLink(), writes ? 1 : 0);
    EXPECT_EQ(FrameLinkOpen(), writes);
    if (writes) {
      EXPECT_EQ(pipes.opened, (Texts{"busy", "dev", "close", "dev\\PIPE00", "busy", "dev", "close", "dev\\PIPE01"}));
      usb.calls.clear();
      EXPECT_EQ(OpenWriterLink(), 1);
      EXPECT_TRUE(usb.calls.empty());
    }
    CloseWriterLink();
  }
}

TEST_F(Link, VelmarapiComesFirst) {
  vendor.openResult = 0;
  OpenTransport();
  EXPECT_EQ(vendor.calls, (Texts{"open 9899 0 0", "timeout 5"}));
  EXPECT_EQ(usb.calls, Texts{});
  EXPECT_EQ(TheAppState().writer.WriterConnected, 1U);
}

TEST_F(Link, PeekOnBothTransports) {
  OpenFrames();
  usb.reads = {{0x98}};
  TheAppState().writer.ProgressMode = Progress::Transfers;
  EXPECT_EQ(PeekByte(address::kModel), 0x98);
  EXPECT_EQ(usb.wire, (Texts{"> 55 53 42 43 00 00 00 00 01 00 00 00 00", "> 00", "< 13",
                             "> 55 53 42 43 00 00 00 00 02 00 00 00 0F", "> FA 8F", "< 13",
                             "> 55 53 42 43 00 00 00 00 01 00 00 00 11", "< 1", "< 13"}));
  EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::None);

  usb.wire.clear();
  TheAppState().writer.HwKnown = false;
  EXPECT_EQ(PeekByte(address::kModel), 0);
  EXPECT_TRUE(usb.wire.empty());
  EXPECT_FALSE(TheAppState().writer.TransferBusy);

  OpenVendor();
  vendor.reads = {{0x99}};
  EXPECT_EQ(PeekByte(address::kModel), 0x99);
  EXPECT_EQ(vendor.calls, (Texts{"write 0: 00", "write 15: 00 00 FA 8F", "read 17: 1"}));
}

TEST_F(Link, InfoBlockAndSelfTestOnBothTransports) {
  OpenFrames();
  TheAppState().writer.ProgressMode = Progress::Transfers;
  ReadInfoBlock(TheAppState().writer.WriterInfoBlock);
  EXPECT_EQ(All(usb.wire[3], usb.wire[4]), All("> 55 53 42 43 00 00 00 00 02 00 00 00 14", "> 04 17"));
  EXPECT_EQ(usb.wire[6], "> 55 53 42 43 00 00 00 00 00 02 00 00 13");
  EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::None);
  usb.wire.clear();
  SendTestSet(0x8D01);
  EXPECT_EQ(usb.wire[4], "> 01 8D");

  OpenVendor();
  ReadInfoBlock(TheAppState().writer.WriterInfoBlock);
  SendTestSet(0x8D01);
  EXPECT_EQ(vendor.calls, (Texts{"write 0: 47", "write 20: 04 17", "read 19: 512", "write 20: 0C 07", "write 0: 07",
                                 "write 0: 47", "write 3: 8D 01"}));
}

TEST_F(Link, ChunksAndProgress) {
  OpenFrames();
  TheAppState().writer.ProgressMode = Progress::Transfers;
  // clang-format off
  for (const auto& [length, range, chunks] : Table<std::uint32_t, int, std::vector<int>>{
           {0, 2, {}}, {1, 2, {1}}, {512, 1, {512}}, {513, 1, {512, 1}}, {2048, 4, {512, 512, 512, 512}}}) {
    // clang-format on
    SCOPED_TRACE(length);
    usb.wire.clear();
    const Bytes data(length + 1, 7);
    EXPECT_NE(SendBlock(data.data(), length, OP_WRITE_AREA), 0);
    EXPECT_EQ(TheMainControls().statusBar.high, range);
    ASSERT_EQ(usb.wire.size(), chunks.size() + 2);
    for (std::size_t i = 0; i < chunks.size(); ++i)
      EXPECT_EQ(usb.wire[i + 1], chunks[i] == 1 ? "> 07" : "> " + std::to_string(chunks[i]) + " bytes");
    EXPECT_EQ(usb.wire.back(), "< 13");
  }
  EXPECT_EQ(TheMainControls().statusBar.position, 4);
  EXPECT_EQ(MakeCommandBlock(0x10800, OP_WRITE_MEMORY)[9], 0x08);
}

TEST_F(Link, OnlyTheCommandAndTheStatusDecide) {
  const Bytes data(600);
  // clang-format off
  for (const auto& [failWrite, failRead, result, transfers] : Table<int, int, int, std::size_t>{
           {0, -1, 0, 1}, {1, -1, 1, 4}, {-1, 0, 0, 4}}) {
    // clang-format on
    usb = WireLog();
    OpenFrames();
    usb.failWriteAt = failWrite;
    usb.failReadAt = failRead;
    EXPECT_EQ(SendBlock(data.data(), 600, OP_WRITE_AREA), result);
    EXPECT_EQ(usb.wire.size(), transfers);
    CloseWriterLink();
  }
  usb = WireLog();
  EXPECT_EQ(SendBlock(data.data(), 1, OP_SET_MODE), 0);  // closed link
  OpenFrames();
  EXPECT_EQ(SendBlock(nullptr, 1, OP_SET_MODE), 0);
  EXPECT_EQ(ReceiveBlock(nullptr, 1, OP_READ_AREA), 0);
  EXPECT_TRUE(usb.wire.empty());
}

TEST_F(Link, IdentityTellsTheHardware) {
  OpenFrames();
  // clang-format off
  for (const auto& [identity, hwFolder, known] : Table<std::string, const char*, std::uint32_t>{
           {"PYX STANDALONE LOADER_V1.1", "hwversion1.1", 1}, {"PYX STANDALONE LOADER_V1.0", "hwversion1.0", 1},
           {"PYX STANDALONE LOADER_V2.0", "hwversion1.1", 1}, {"PYX STANDALONE LOADER_V2.1", "hwversion1.0", 0},
           {"", "hwversion1.0", 0}}) {
    // clang-format on
    usb.reads = {Bytes(identity.begin(), identity.end())};
    usb.wire.clear();
    ReadWriterIdentity();
    EXPECT_EQ(All(TheAppState().writer.HwFolder, TheAppState().writer.HwKnown), All(hwFolder, known));
    EXPECT_EQ(usb.wire, (Texts{"> 55 53 42 43 00 00 00 00 1A 00 00 00 04", "< 26", "< 13"}));
  }
}

TEST_F(Link, FirmwareBytes) {
  OpenFrames();
  usb.reads = {{0x27}, {0x35}, {0x85}, {0x01}, {0x04}};
  ReadFirmwareBytes();
  EXPECT_EQ(All(TheAppState().writer.FirmwareCode, TheAppState().writer.FirmwareVersion), All(0x2735U, 0x85));
  EXPECT_EQ(TheAppState().writer.FirmwareLevel, 0x104U);
  EXPECT_EQ(usb.wire[usb.wire.size() - 2], "> 07");
}

}  // namespace
}  // namespace pyxis::test
