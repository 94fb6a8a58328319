#include "operations/run_task.h"
#include "operations/tasks.h"

#include "intake/package_files.h"
#include "platform/byte_order.h"
#include "support/bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

class Tasks : public ScriptedWriter {
 protected:
  Tasks() {
    TheAppState().selection.SelectedChip = "QV8348";
    PutJob("QV8348", 0x1234);
  }
  void PutJob(const std::string& chip, unsigned checksum) {
    auto& block = TheAppState().writer.WriterInfoBlock;
    block.fill(0);
    std::copy(chip.begin(), chip.end(), block.begin());
    StoreBe16(&block[16], checksum);
  }
  void Script(const std::vector<int>& statuses) {
    vendor.Script({});
    for (const int status : statuses) vendor.reads.push_back({static_cast<std::uint8_t>(status)});
  }
};

TEST_F(Tasks, SixEqualReadingsAreAVerdict) {
  // clang-format off
  for (const auto& [statuses, good, reads] : Table<std::vector<int>, bool, std::size_t>{
           {{1, 1, 1, 1, 1, 1}, true, 6}, {{2, 2, 2, 2, 2, 2}, true, 6},
           {{3, 3, 3, 3, 3, 0, 3, 3, 3, 3, 3, 3}, false, 12}, {{0, 0, 1, 2, 1, 1, 1, 1, 1, 1}, true, 10},
           {{0xFD, 1, 0x81, 5, 9, 1}, true, 6}}) {
    // clang-format on
    Script(statuses);
    EXPECT_EQ(RunTask(16, 1), good);
    EXPECT_EQ(All(vendor.calls.size(), vendor.calls[0]), All(reads + 1, "write 21: 10"));
  }
}

// Each read takes a while and brings a status, or ' ' nothing; the last of them repeats.
class SlowWriter : public VendorLog {
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

TEST_F(Tasks, LostReadsAreBoundedByTime) {
  // clang-format off
  for (const auto& [why, milliseconds, statuses, good, reads] : Table<const char*, std::uint32_t, const char*, bool, int>{
           {"a cable pulled", 0, "0 ", false, 1002}, {"each a time-out", 5000, "0 ", false, 3},
           {"one late answer", 120000, "0 111111", true, 8}, {"good ones between", 900, " 0 0 0 0111111", true, 14},
           {"one lost too many", 500, "0  0   111111", false, 7}, {"no verdict", 60000, "0", false, 30}}) {
    // clang-format on
    SlowWriter writer(clock, milliseconds, statuses);
    TheMachine().vendor = &writer;
    EXPECT_EQ(RunTask(16, 1), good) << why;
    EXPECT_EQ(writer.count, reads) << why;
  }
}

TEST_F(Tasks, Guards) {
  auto& block = TheAppState().writer.WriterInfoBlock;
  // clang-format off
  for (const auto& [why, spoil, text] : Table<const char*, std::function<void()>, const char*>{
           {"other chip", [&] { PutJob("QV8349", 1); }, "HW and SW Chip Name is discordant"},
           {"letter case", [&] { PutJob("qv8348", 1); }, "HW and SW Chip Name is discordant"},
           {"serial set-up", [&] { block[53] = 16; }, "Please Reload Program File"},
           {"no checksum", [&] { PutJob("QV8348", 0); }, "Please Download File"},
           {"nothing at all", [&] { PutJob("", 0); TheAppState().selection.SelectedChip.clear(); }, "Please Download File"}}) {
    // clang-format on
    SCOPED_TRACE(why);
    TheAppState().selection.SelectedChip = "QV8348";
    PutJob("QV8348", 1);
    spoil();
    for (const auto& handler : {OnBlankCheck, OnProgram, OnVerify}) {
      vendor.calls.clear();
      handler();
      EXPECT_EQ(op.Boxes(), (std::vector<Told>{{text, "Message", MessageIcon::Warning}}));
      EXPECT_TRUE(vendor.calls.empty());
    }
  }
}

TEST_F(Tasks, AutoReadsTheBlockFirstAndHeedsTheLimit) {
  Bytes block(TheAppState().writer.WriterInfoBlock.begin(), TheAppState().writer.WriterInfoBlock.end());
  block[244] = 0x1F;
  vendor.reads = {block};
  OnAuto();
  EXPECT_EQ(op.Heard(), Texts{"Production Limit Complete"});
  Script({1, 1, 1, 1, 1, 1});
  OnProgram();  // doesn't look at the limit
  EXPECT_EQ(op.Boxes(), (std::vector<Told>{{"Program OK", "Message", MessageIcon::None}}));
}

TEST_F(Tasks, BlankCheckAsksBeforeItErases) {
  const std::string question = " MTP/Flash series IC will clear all data ";
  // negative: no file
  // clang-format off
  for (const auto& [chipClass, answer, told] : Table<int, bool, Texts>{
           {17, true, {question, "BlankCheck OK"}}, {17, false, {question}}, {1, false, {"BlankCheck OK"}},
           {-1, false, {"BlankCheck OK"}}}) {
    // clang-format on
    std::filesystem::remove(folder / kOptionPackageName);
    if (chipClass >= 0) Write(kOptionPackageName, Bytes(208, static_cast<std::uint8_t>(chipClass)));
    op.answers = {answer};
    Script({1, 1, 1, 1, 1, 1});
    OnBlankCheck();
    EXPECT_EQ(op.Heard(), told);
    EXPECT_EQ(vendor.calls.empty(), told.size() == 1 && chipClass == 17);
    EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::None);
    EXPECT_FALSE(TheMainControls().statusBar.progressVisible);
  }
}

TEST_F(Tasks, ButtonsAndCursorComeBack) {
  op.cursorsLoad = true;
  TheAppState().selection.MassProduction = MassMode::On;
  Script({3, 3, 3, 3, 3, 3});
  OnVerify();
  EXPECT_EQ(op.Heard(), Texts{"Verify FAIL"});
  EXPECT_EQ(All(op.cursors, op.cursor), All(Texts{Path("metronom.ani")}, 1));
  EXPECT_TRUE(TheMainControls()[ControlId::Auto].enabled);
  EXPECT_FALSE(TheMainControls()[ControlId::Program].enabled);
}

}  // namespace
}  // namespace pyxis::test
