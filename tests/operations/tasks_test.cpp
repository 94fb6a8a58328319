#include "operations/tasks.h"

#include "intake/package_files.h"
#include "link/identification.h"
#include "platform/byte_order.h"
#include "platform/machine.h"
#include "shell/app_state.h"
#include "shell/main_controls.h"
#include "support/bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

using Texts = std::vector<std::string>;

// A writer that answers what the test scripts.
class Tasks : public Bench {
 protected:
  Tasks() {
    TheMachine().vendor = &vendor;
    OpenTransport();
    vendor.calls.clear();
    TheAppState().SelectedChip = "QV8348";
    PutJob("QV8348", 0x1234);
  }
  void PutJob(const std::string& chip, unsigned checksum) {
    auto& block = TheAppState().WriterInfoBlock;
    block.fill(0);
    std::copy(chip.begin(), chip.end(), block.begin());
    StoreBe16(&block[16], checksum);
  }
  void Script(std::initializer_list<int> statuses) {
    for (const int status : statuses) vendor.reads.push_back({static_cast<std::uint8_t>(status)});
  }
  VendorLog vendor;
};

TEST_F(Tasks, SixEqualReadingsAreAVerdict) {
  struct Case {
    std::vector<int> statuses;
    bool good;
    std::size_t reads;
  };
  for (const Case& c : {Case{{1, 1, 1, 1, 1, 1}, true, 6}, Case{{2, 2, 2, 2, 2, 2}, true, 6},
                        Case{{3, 3, 3, 3, 3, 0, 3, 3, 3, 3, 3, 3}, false, 12},
                        Case{{0, 0, 1, 2, 1, 1, 1, 1, 1, 1}, true, 10},
                        Case{{0xFD, 1, 0x81, 5, 9, 1}, true, 6}}) {
    vendor.calls.clear();
    vendor.reads.clear();
    for (const int status : c.statuses) Script({status});
    EXPECT_EQ(RunTask(16, 1), c.good);
    EXPECT_EQ(vendor.calls.size(), c.reads + 1);
    EXPECT_EQ(vendor.calls[0], "write 21: 10");
  }
}

TEST_F(Tasks, ThePollIsBounded) {
  clock.step = 60 * 1000;
  EXPECT_FALSE(RunTask(16, 1));  // the writer answers 0 for ever
}

TEST_F(Tasks, TheBarFollowsTheReads) {
  SetProgressRange(0, 50);
  Script({0, 0, 0, 3, 3, 3, 3, 3, 3});
  RunTask(16, 4);
  EXPECT_EQ(TheMainControls().statusBar.position, 2);
  Script({1, 1, 1, 1, 1, 1});
  RunTask(16, 28);
  EXPECT_EQ(TheMainControls().statusBar.position, 50);
}

TEST_F(Tasks, Guards) {
  struct Case {
    const char* why;
    std::function<void()> spoil;
    const char* text;
  };
  auto& block = TheAppState().WriterInfoBlock;
  for (const Case& c : {
           Case{"other chip", [&] { PutJob("QV8349", 1); }, "HW and SW Chip Name is discordant"},
           Case{"letter case", [&] { PutJob("qv8348", 1); }, "HW and SW Chip Name is discordant"},
           Case{"serial set-up", [&] { block[53] = 16; }, "Please Reload Program File"},
           Case{"no checksum", [&] { PutJob("QV8348", 0); }, "Please Download File"},
           Case{"nothing at all",
                [&] {
                  PutJob("", 0);
                  TheAppState().SelectedChip.clear();
                },
                "Please Download File"},
       }) {
    SCOPED_TRACE(c.why);
    TheAppState().SelectedChip = "QV8348";
    PutJob("QV8348", 1);
    c.spoil();
    for (const auto& handler : {OnBlankCheck, OnProgram, OnVerify}) {
      op.told.clear();
      vendor.calls.clear();
      handler();
      EXPECT_EQ(op.told, (std::vector<Told>{{c.text, "Message", MessageIcon::Warning}}));
      EXPECT_TRUE(vendor.calls.empty());
    }
  }
}

TEST_F(Tasks, AutoReadsTheBlockFirstAndHeedsTheLimit) {
  std::vector<std::uint8_t> block(TheAppState().WriterInfoBlock.begin(), TheAppState().WriterInfoBlock.end());
  block[244] = 0x1F;
  vendor.reads = {block};
  OnAuto();
  EXPECT_EQ(op.Texts(), Texts{"Production Limit Complete"});
  op.told.clear();
  Script({1, 1, 1, 1, 1, 1});
  OnProgram();  // doesn't look at the limit
  EXPECT_EQ(op.told, (std::vector<Told>{{"Program OK", "Message", MessageIcon::None}}));
}

TEST_F(Tasks, BlankCheckAsksBeforeItErases) {
  struct Case {
    int chipClass;  // negative: no file
    bool answer;
    Texts told;
  };
  const std::string question = " MTP/Flash series IC will clear all data ";
  for (const Case& c : {Case{17, true, {question, "BlankCheck OK"}}, Case{17, false, {question}},
                        Case{1, false, {"BlankCheck OK"}}, Case{-1, false, {"BlankCheck OK"}}}) {
    std::filesystem::remove(folder / kOptionPackageName);
    if (c.chipClass >= 0)
      Write(kOptionPackageName, std::vector<std::uint8_t>(208, static_cast<std::uint8_t>(c.chipClass)));
    op.told.clear();
    op.answers = {c.answer};
    vendor.calls.clear();
    vendor.reads.clear();
    Script({1, 1, 1, 1, 1, 1});
    OnBlankCheck();
    EXPECT_EQ(op.Texts(), c.told);
    EXPECT_EQ(vendor.calls.empty(), c.told.size() == 1 && c.chipClass == 17);
    EXPECT_EQ(TheAppState().ProgressMode, 0);
    EXPECT_FALSE(TheMainControls().statusBar.progressVisible);
  }
}

TEST_F(Tasks, ButtonsAndCursorComeBack) {
  op.cursorsLoad = true;
  TheAppState().MassProduction = 1;
  Script({3, 3, 3, 3, 3, 3});
  OnVerify();
  EXPECT_EQ(op.Texts(), Texts{"Verify FAIL"});
  EXPECT_EQ(op.cursors, Texts{Path("metronom.ani")});
  EXPECT_EQ(op.cursor, 1);
  EXPECT_TRUE(TheMainControls()[ControlId::Auto].enabled);
  EXPECT_FALSE(TheMainControls()[ControlId::Program].enabled);
}

}  // namespace
}  // namespace pyxis::test
