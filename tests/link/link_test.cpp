#include "data/cases.h"
#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "platform/device_pipes.h"
#include "platform/main_view.h"
#include "platform/text.h"
#include "support/bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

// The bar and the paints, in one list with the transfers.
class ListedView : public MainView {
 public:
  explicit ListedView(Texts& list) : list_(list) {}
  void ProgressChanged() override {
    const CProgStatusBar& bar = TheMainControls().statusBar;
    list_.push_back(std::to_string(bar.position) + " of " + std::to_string(bar.high));
  }
  void PumpPaint() override { list_.push_back("paint"); }

 private:
  Texts& list_;
};

// "> 55 53 42 43 00 ..." of a command block.
std::string Command(unsigned length, unsigned opcode) {
  return Printf("> 55 53 42 43 00 00 00 00 %02X %02X %02X 00 %02X", length & 0xFF, length >> 8 & 0xFF, length >> 16,
                opcode);
}

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
  WireLog usb;
  SilentVendor vendor;
  bool capturing = true;
};

TEST_F(Link, TakesTheFirstWriterInBusOrder) {
  EXPECT_EQ(OpenWriterLink(), 1);
  EXPECT_TRUE(TheAppState().writer.UseLibusb);
  EXPECT_EQ(usb.calls, (Texts{"find", "open 1"}));
  CloseWriterLink();
  CloseWriterLink();
  EXPECT_EQ(usb.calls, (Texts{"find", "open 1", "close"}));
  EXPECT_FALSE(TheAppState().writer.UseLibusb);
  EXPECT_EQ(Printed(), "success: set configuration #1\nsuccess: claim_interface #0\n");
}

TEST_F(Link, ADeviceThatRefusesIsGivenUp) {
  usb.configurationResult = -1;
  EXPECT_EQ(OpenWriterLink(), 0);
  usb.configurationResult = 0;
  usb.claimResult = -1;
  EXPECT_EQ(OpenWriterLink(), 0);
  EXPECT_FALSE(TheAppState().writer.UseLibusb);
  EXPECT_EQ(usb.calls, (Texts{"find", "open 1", "close", "find", "open 1", "close"}));
  EXPECT_EQ(Printed(),  // and nothing of pipes, which this system doesn't have
            "error setting config #1: broken\nsuccess: set configuration #1\nerror claiming interface #0:\nbroken\n");
}

// Two interfaces, the first of which can't be opened.
class TwoPipes : public DevicePipes {
 public:
  Texts calls;
  Texts refused{"busy"};
  bool works = true;
  bool Exist() const override { return true; }
  Texts InterfacePaths() override { return {"busy", "dev"}; }
  Handle Open(const std::string& path, int& error) override {
    error = 5;
    if (std::count(refused.begin(), refused.end(), path) != 0) return nullptr;
    calls.push_back("open " + path);
    return path == "dev" ? &trial_ : path == "dev\\PIPE00" ? &read_ : path == "dev\\PIPE01" ? &write_ : nullptr;
  }
  bool Write(Handle handle, const std::uint8_t* data, std::uint32_t count) override {
    calls.push_back((handle == &write_ ? "write " : "wrong ") + Hex(data, count));
    return works;
  }
  bool Read(Handle handle, std::uint8_t*, std::uint32_t count) override {
    calls.push_back((handle == &read_ ? "read " : "wrong ") + std::to_string(count));
    return works;
  }
  void Close(Handle handle) override {
    calls.push_back(handle == &trial_ ? "close trial" : handle == &read_ ? "close read" : "close write");
  }

 private:
  char trial_ = 0, read_ = 0, write_ = 0;
};

TEST_F(Link, PipesAreTheLastResort) {
  TwoPipes pipes;
  TheMachine().pipes = &pipes;
  const std::string found = "Attempting to open busy\nFAILED to open busy\nAttempting to open dev\n";
  const std::string none =
      "Attempting to open busy\nFAILED to open busy\nAttempting to open dev\nFAILED to open dev\n"
      "Failed to GetUsbDeviceFileName\n";
  const std::string reads = found + "completeDeviceName = (dev\\PIPE00)\nOpened successfully.\n";
  const std::string writes = found + "completeDeviceName = (dev\\PIPE01)\n";
  usb.buses.clear();
  // clang-format off
  for (const auto& [refused, opens, printed, calls] : Table<Texts, int, std::string, Texts>{
           {{"busy"}, 1, reads + writes + "Opened successfully.\n",
            {"open dev", "close trial", "open dev\\PIPE00", "open dev", "close trial", "open dev\\PIPE01"}},
           {{"busy", "dev\\PIPE01"}, 0, reads + writes + "Failed to open (dev\\PIPE01) = 5",
            {"open dev", "close trial", "open dev\\PIPE00", "open dev", "close trial"}},
           {{"busy", "dev"}, 0, none + none, {}}}) {
    // clang-format on
    pipes.refused = refused;
    pipes.calls.clear();
    usb.calls.clear();
    EXPECT_EQ(OpenWriterLink(), opens);
    EXPECT_EQ(Printed(), printed);
    EXPECT_EQ(All(pipes.calls, usb.calls), All(calls, Texts{"find"}));
    EXPECT_EQ(All(FrameLinkOpen(), TheAppState().writer.UseLibusb), All(opens == 1, false));
    if (opens == 1) {
      pipes.calls.clear();
      EXPECT_EQ(OpenWriterLink(), 1);  // open already: no search
      EXPECT_EQ(All(pipes.calls, usb.calls), All(Texts{}, Texts{"find"}));
      const Bytes data{1, 2};
      Bytes buffer(3);
      for (const bool works : {true, false}) {
        pipes.works = works;
        EXPECT_EQ(All(LinkWrite(data.data(), 2), LinkRead(buffer.data(), 3)), All(works, works));
      }
      CloseWriterLink();
      CloseWriterLink();
      std::sort(pipes.calls.begin(), pipes.calls.end());
      EXPECT_EQ(pipes.calls, (Texts{"close read", "close write", "read 3", "read 3", "write 01 02", "write 01 02"}));
    }
    testing::internal::CaptureStdout();
    capturing = true;
  }
  pipes.calls.clear();
  pipes.refused = {"busy", "dev\\PIPE00"};
  EXPECT_EQ(OpenWriterLink(), 0);  // the single one stays, and is closed with the link
  CloseWriterLink();
  EXPECT_EQ(pipes.calls.back(), "close write");
}

TEST_F(Link, ChunksProgressAndPaints) {
  ListedView view(usb.wire);
  TheMachine().view = &view;
  OpenFrames();
  const Bytes data(2048, 7);
  Bytes buffer(2048);
  const auto send = [&](unsigned length) { return SendBlock(data.data(), length, OP_WRITE_AREA); };
  const auto receive = [&](unsigned length) { return ReceiveBlock(buffer.data(), length, OP_READ_AREA); };
  ForEachCase("link.tsv", "chunks", [&](const Case& c) {
    const auto length = static_cast<unsigned>(c.Number(0));
    const auto check = [&](const auto& command, Texts head, const Texts& rest) {
      const auto isBar = [](const std::string& line) { return line.find(" of ") != std::string::npos; };
      head.insert(head.end(), rest.begin(), rest.end());
      for (const Progress mode : {Progress::Transfers, Progress::None, Progress::Auto}) {
        TheAppState().writer.ProgressMode = mode;
        usb.wire.clear();
        EXPECT_NE(command(length), 0);
        if (mode != Progress::Transfers) std::erase_if(head, isBar);
        EXPECT_EQ(usb.wire, head);
      }
    };
    check(send, {"0 of 100", "1 of 100", "paint", Command(length, 18), "paint"}, Parts(c[1], '|'));
    check(receive, {"0 of 100", "1 of 100", Command(length, 19)}, Parts(c[2], '|'));
  });
  EXPECT_EQ(MakeCommandBlock(0x10800, OP_WRITE_MEMORY),
            (CommandBlock{0x55, 0x53, 0x42, 0x43, 0, 0, 0, 0, 0x00, 0x08, 0x01, 0x00, 16}));
}

TEST_F(Link, AFailureAtEachTransfer) {
  const Bytes data(600);
  Bytes buffer(600);
  using Call = std::function<int()>;
  const Call send = [&] { return SendBlock(data.data(), 600, OP_WRITE_AREA); };
  const Call receive = [&] { return ReceiveBlock(buffer.data(), 600, OP_READ_AREA); };
  const Call identity = [&] { return ReadIdentity(buffer.data()); };
  // Which write or read fails, whether the command does, and how many transfers there are.
  // clang-format off
  for (const auto& [call, failWrite, failRead, good, transfers] : Table<Call, int, int, bool, std::size_t>{
           {send, 0, -1, false, 1}, {send, 1, -1, true, 4}, {send, 2, -1, true, 4}, {send, -1, 0, false, 4},
           {receive, 0, -1, false, 1}, {receive, -1, 0, true, 4}, {receive, -1, 1, true, 4},
           {receive, -1, 2, false, 4}, {identity, 0, -1, false, 1}, {identity, -1, 0, false, 2},
           {identity, -1, 1, false, 3}, {identity, -1, -1, true, 3}}) {
    // clang-format on
    usb = WireLog();
    OpenFrames();
    usb.failWriteAt = failWrite;
    usb.failReadAt = failRead;
    EXPECT_EQ(call() != 0, good);
    EXPECT_EQ(usb.wire.size(), transfers);
    CloseWriterLink();
    EXPECT_EQ(call(), 0);  // closed: nothing is sent
    EXPECT_EQ(usb.wire.size(), transfers);
  }
  OpenFrames();
  usb.wire.clear();
  EXPECT_EQ(SendBlock(nullptr, 1, OP_SET_MODE), 0);
  EXPECT_EQ(ReceiveBlock(nullptr, 1, OP_READ_AREA), 0);
  EXPECT_EQ(ReadIdentity(nullptr), 0);
  EXPECT_EQ(usb.wire, Texts{});
}

TEST_F(Link, LinesOfTransfers) {
  OpenFrames();
  Printed();
  testing::internal::CaptureStdout();
  capturing = true;
  const Bytes data(13);
  Bytes buffer(5);
  EXPECT_TRUE(LinkWrite(data.data(), 13));
  EXPECT_TRUE(LinkRead(buffer.data(), 5));
  usb.failWriteAt = usb.failReadAt = 1;
  EXPECT_FALSE(LinkWrite(data.data(), 13));
  EXPECT_FALSE(LinkRead(buffer.data(), 5));
  EXPECT_EQ(Printed(),
            "success: bulk write 13 bytes\nsuccess: bulk read 5 bytes\nerror writing:\nbroken\n"
            "error reading:\nbroken\n");
}

}  // namespace
}  // namespace pyxis::test
