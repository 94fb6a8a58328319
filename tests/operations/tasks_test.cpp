// Auto, Blank check, Program and Verify: their events, their guards, and when a verdict counts.
#include "operations/tasks.h"

#include "intake/package_files.h"
#include "operations/run_task.h"
#include "platform/byte_order.h"
#include "support/recorded_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

class Tasks : public RecordedOnBoth {
 protected:
  // A loaded job, a status text that the bar wipes, and a status byte of 0 in the first three of nine reads.
  void SetUp() override {
    LoadSample("QV8348");
    TheAppState().selection.HasSmartOption = true;
    SetStatusText("X=1 Y=2");
  }
  static Texts Begin() { return {"bar 0-50", "status = ", "bar 1", "load cursor metronom.ani", "cursor busy"}; }
  static Texts Task(const std::string& byte, int divisor) {
    return Texts{"off Auto BlankCheck Program Verify Read SmartOption", "paint", "w START_TASK " + byte} +
           Poll(9, divisor);
  }
  static Texts End() { return {"cursor arrow", "bar off", "paint"}; }
  const Texts back{"on Auto BlankCheck Program Verify Read SmartOption"};
};

TEST_P(Tasks, GoodRuns) {
  Start();
  OnAuto();
  ExpectEvents(InfoBlock() + Begin() + Task("10", 4) + back + Texts{"bar 50", "box [Message] Auto OK"} + End());
  SetStatusText("X=1 Y=2");
  Start();
  OnVerify();
  ExpectEvents(Begin() + Task("16", 1) + back + Texts{"bar 50", "box [Message] Verify OK"} + End());
  writer.chip = standin::Chip{};
  SetStatusText("X=1 Y=2");
  Start();
  OnBlankCheck();
  ExpectEvents(Begin() + Task("12", 1) + back + Texts{"bar 50", "box [Message] BlankCheck OK"} + End());
  SetStatusText("X=1 Y=2");
  Start();
  OnProgram();
  ExpectEvents(Begin() + Task("14", 3) + back + Texts{"bar 50", "box [Message] Program OK"} + End());
}

TEST_P(Tasks, FailedRuns) {
  // clang-format off
  for (const auto& [run, byte, divisor, text, first] : Table<Outcome (*)(), const char*, int, const char*, Texts>{
           {OnAuto, "10", 4, "Auto FAIL", InfoBlock()}, {OnBlankCheck, "12", 1, "BlankCheck FAIL", {}},
           {OnProgram, "14", 3, "Program FAIL", {}}, {OnVerify, "16", 1, "Verify FAIL", {}}}) {
    // clang-format on
    writer.faults.failTask = 1;
    SetStatusText("X=1 Y=2");
    Start();
    run();
    ExpectEvents(first + Begin() + Task(byte, divisor) + back + Texts{std::string("box [Message] ") + text} + End());
  }
}

// What is wrong with the job, and what the operator hears of it; of two things the one that stands first.
TEST_P(Tasks, Guards) {
  const std::string name = "HW and SW Chip Name is discordant", reload = "Please Reload Program File",
                    download = "Please Download File", limit = "Production Limit Complete";
  const auto put = [](Bytes& block, const std::string& chip, int serialHead, int checksum, int status) {
    std::fill_n(block.begin(), 10, std::uint8_t{0});
    std::copy(chip.begin(), chip.end(), block.begin());
    block[53] = static_cast<std::uint8_t>(serialHead);
    StoreBe16(&block[16], static_cast<unsigned>(checksum));
    block[244] = static_cast<std::uint8_t>(status);
  };
  // The last column: of the limit only Auto hears.
  // clang-format off
  for (const auto& [chip, serialHead, checksum, status, text, autoAlone] :
       Table<const char*, int, int, int, std::string, bool>{
           {"QV8349", 0, 1, 0, name, false}, {"qv8348", 0, 1, 0, name, false}, {"QV8348_14", 0, 1, 0, name, false},
           {"QV8349", 16, 1, 0, name, false}, {"QV8349", 0, 0, 0x10, name, false},
           {"QV8348", 16, 1, 0, reload, false}, {"QV8348", 16, 0, 0x10, reload, false},
           {"QV8348", 0, 0, 0, download, false}, {"QV8348", 0x20, 0, 0x1F, download, false},
           {"QV8348", 0, 1, 0x10, limit, true}, {"QV8348", 0, 0x100, 0x1F, limit, true}}) {
    // clang-format on
    SCOPED_TRACE(std::string(chip) + ": " + text);
    put(writer.OptionArea(), chip, serialHead, checksum, status);
    Start();
    OnAuto();
    ExpectEvents(InfoBlock() + Texts{"box [Message, warning] " + text});
    if (autoAlone) continue;
    put(writer.OptionArea(), "QV8348", 0, 1, 0);  // the others go by the copy in memory
    for (const auto run : {OnBlankCheck, OnProgram, OnVerify}) {
      run();
      ExpectEvents({"box [Message, warning] " + text});
    }
  }
  // Statuses that are no limit, and an empty block with no IC.
  for (const int status : {0x00, 0x01, 0x20, 0x30, 0xF1}) {
    put(writer.OptionArea(), "QV8348", 1, 0xFF00, status);
    OnAuto();
    EXPECT_TRUE(op.Heard().back().starts_with("Auto ")) << status;
  }
  put(writer.OptionArea(), "", 0, 0, 0);
  TheAppState().selection.SelectedChip.clear();
  OnAuto();
  EXPECT_EQ(op.Heard(), Texts{download});
}

TEST_P(Tasks, BlankCheckAsksBeforeItErases) {
  Bytes package = Contents(kOptionPackageName);
  const auto put = [&](std::uint8_t chipClass) {
    package[71] = chipClass;
    Write(kOptionPackageName, package);
    SetStatusText("X=1 Y=2");
    Start();
    OnBlankCheck();
  };
  put(17);
  ExpectEvents(Begin() + Texts{"ask [ , question]  MTP/Flash series IC will clear all data : No"} + End());
  EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::None);
  op.answers = {true};
  put(17);
  ExpectEvents(Begin() + Texts{"ask [ , question]  MTP/Flash series IC will clear all data : Yes"} + Task("12", 1) +
               back + Texts{"bar 50", "box [Message] BlankCheck OK"} + End());
  for (const std::uint8_t other : {std::uint8_t{16}, std::uint8_t{18}, std::uint8_t{0x91}}) {
    put(other);
    EXPECT_EQ(op.Heard().back(), "BlankCheck OK");
  }
  std::filesystem::remove(folder / kOptionPackageName);
  OnBlankCheck();
  EXPECT_EQ(op.Heard().back(), "BlankCheck OK");
}

TEST_P(Tasks, WithoutItsFileThereIsNoBusyCursor) {
  op.cursorsLoad = false;
  Start();
  OnVerify();
  EXPECT_EQ(record.Take()[3], "no cursor metronom.ani");
  EXPECT_EQ(op.cursor, 1);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, Tasks, kBothTransports);

// What comes back after a run, by the modes.
class Buttons : public RecordedBench {};

TEST_F(Buttons, ComeBackByTheModes) {
  Selection& chosen = TheAppState().selection;
  // clang-format off
  for (const auto& [serial, mass, limit, smart, fromOff, fromOn] :
       Table<bool, MassMode, bool, bool, const char*, const char*>{
           {false, MassMode::Off, false, false, "on Auto BlankCheck Program Verify Read", ""},
           {false, MassMode::Off, false, true, "on Auto BlankCheck Program Verify Read SmartOption", ""},
           {false, MassMode::On, false, true, "on Auto Read SmartOption", "off BlankCheck Program Verify"},
           {false, MassMode::WithLimit, false, false, "on Auto Read", "off BlankCheck Program Verify"},
           {false, MassMode::Off, true, false, "on Auto Read", "off BlankCheck Program Verify"},
           {true, MassMode::Off, false, true, "on Read SmartOption", ""},
           {true, MassMode::On, true, false, "on Read", ""}}) {
    // clang-format on
    chosen.SnMode = serial;
    chosen.MassProduction = mass;
    chosen.ProductionLimitOn = limit;
    chosen.HasSmartOption = smart;
    DisableOperations();
    Start();
    EnableOperations();
    ExpectEvents({fromOff});
    for (const ControlId id : {ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify,
                               ControlId::Read, ControlId::SmartOption})
      EnableControl(id, true);
    Start();
    EnableOperations();
    ExpectEvents(*fromOn == '\0' ? Texts{} : Texts{fromOn});
  }
}

class Verdicts : public ScriptedWriter {};

TEST_F(Verdicts, SixEqualReadingsCount) {
  // clang-format off
  for (const auto& [statuses, good, reads] : Table<std::vector<int>, bool, std::size_t>{
           {{1, 1, 1, 1, 1, 1}, true, 6}, {{2, 2, 2, 2, 2, 2}, true, 6}, {{3, 3, 3, 3, 3, 3}, false, 6},
           {{3, 3, 3, 3, 3, 0, 3, 3, 3, 3, 3, 3}, false, 12}, {{0, 0, 1, 2, 1, 1, 1, 1, 1, 1}, true, 10},
           {{1, 2, 1, 2, 3, 3, 3, 3, 3, 2, 2, 2, 2, 2, 2}, true, 15}, {{0xFD, 1, 0x81, 5, 9, 1}, true, 6},
           {{0, 0, 0, 0, 0, 0, 0, 3, 3, 3, 3, 3, 3}, false, 13}}) {
    // clang-format on
    vendor.Script({});
    for (const int status : statuses) vendor.reads.push_back({static_cast<std::uint8_t>(status)});
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

TEST_F(Verdicts, LostReadsAreBoundedByTime) {
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

}  // namespace
}  // namespace pyxis::test
