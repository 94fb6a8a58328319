// The stand-in's own rules: what it refuses, what it keeps, what a chip takes.
#include <gtest/gtest.h>

#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "standin/in_process.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

using standin::ChipState;
using standin::Door;
using standin::WriterModel;

void Write(WriterModel& writer, std::uint8_t opcode, Bytes data) { writer.Write(opcode, data, Door::Frames); }

void Name(WriterModel& writer) { std::copy_n("QV8348", 6, writer.OptionArea().begin()); }

void ReadTwice(WriterModel& writer) {
  Write(writer, OP_START_TASK, {52});
  Write(writer, OP_START_TASK, {52});
  writer.Read(OP_READ_CHIP, 10, Door::Frames);
}

const std::vector<int> kSetUp{0x8D01, 0x4403, 0x3905, 0x2207};

void TestSets(WriterModel& writer, const std::vector<int>& values) {
  Write(writer, OP_SET_MODE, {71});
  for (const int value : values)
    Write(writer, OP_TEST_SET, {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8)});
}

TEST(Standin, LogsBreachesOfTheProtocol) {
  // clang-format off
  for (const auto& [why, act] : Table<const char*, std::function<void(WriterModel&)>>{
           {"unknown opcode", [](WriterModel& w) {Write(w, 9, {1}); }},
           {"unknown mode", [](WriterModel& w) {Write(w, OP_SET_MODE, {3}); }},
           {"long mode", [](WriterModel& w) {Write(w, OP_SET_MODE, {7, 7}); }},
           {"vendor address on frames",
            [](WriterModel& w) {Write(w, OP_SET_MODE, {0}), Write(w, OP_SET_ADDRESS, {0, 0, 1, 2}); }},
           {"address without mode 0", [](WriterModel& w) {Write(w, OP_SET_ADDRESS, {1, 2}); }},
           {"area without selection",
            [](WriterModel& w) {Write(w, OP_SET_MODE, {71}), w.Read(OP_READ_AREA, 5, Door::Frames); }},
           {"area write without a load",
            [](WriterModel& w) {Write(w, OP_SET_MODE, {71}), Write(w, OP_SELECT_AREA, {4, 23}), Write(w,
             OP_WRITE_AREA, {1}); }},
           {"memory write without a load",
            [](WriterModel& w) {Write(w, OP_SET_MODE, {0}), Write(w, OP_WRITE_MEMORY, {1}); }},
           {"begin without its task", [](WriterModel& w) {Write(w, OP_CONTROL, {16}); }},
           {"unknown task", [](WriterModel& w) {Write(w, OP_START_TASK, {17}); }},
           {"status without a task", [](WriterModel& w) {w.Read(OP_TASK_STATUS, 1, Door::Frames); }},
           {"short identity", [](WriterModel& w) {w.Read(OP_IDENTITY, 25, Door::Frames); }},
           {"chip data without a read", [](WriterModel& w) {w.Read(OP_READ_CHIP, 10, Door::Frames); }},
           {"chip read started once",
            [](WriterModel& w) {Name(w), Write(w, OP_START_TASK, {52}), w.Read(OP_READ_CHIP, 10, Door::Frames); }},
           {"chip read of nobody knows what", [](WriterModel& w) {ReadTwice(w); }},
           {"chip data read twice",
            [](WriterModel& w) {Name(w), ReadTwice(w), w.Read(OP_READ_CHIP, 10, Door::Frames); }},
           {"self-test out of order", [](WriterModel& w) {TestSets(w, {0x8D01, 0x3905}); }},
           {"self-test value with its bytes exchanged", [](WriterModel& w) {TestSets(w, {0x018D}); }},
           {"self-test step after half a set-up",
            [](WriterModel& w) {TestSets(w, {0x8D01, 0x4403}), Write(w, OP_TEST_SELECT, {0}); }},
           {"unknown self-test step", [](WriterModel& w) {TestSets(w, kSetUp), Write(w, OP_TEST_SELECT, {1}); }},
           {"measurement without a step",
            [](WriterModel& w) {TestSets(w, kSetUp), w.Read(OP_TEST_MEASURE, 6, Door::Frames); }},
           {"self-test step after another mode",
            [](WriterModel& w) {TestSets(w, kSetUp), Write(w, OP_SET_MODE, {7}), Write(w, OP_SET_MODE, {71}),
             Write(w, OP_TEST_SELECT, {0}); }}}) {
    // clang-format on
    SCOPED_TRACE(why);
    WriterModel writer;
    act(writer);
    EXPECT_EQ(writer.Violations().size(), 1U);
  }
}

TEST(Standin, FramingIsStrict) {
  WriterModel writer;
  standin::FrameDoor door(writer);
  std::uint8_t buffer[600] = {};
  EXPECT_LT(door.In(buffer, 13), 0);
  EXPECT_LT(door.Out(buffer, 13), 0);
  const CommandBlock block = MakeCommandBlock(513, OP_WRITE_AREA);
  EXPECT_EQ(door.Out(block.data(), 13), 13);
  EXPECT_LT(door.Out(buffer, 513), 0);
  EXPECT_EQ(door.Out(buffer, 512), 512);
  EXPECT_LT(door.In(buffer, 13), 0);
  EXPECT_EQ(writer.Violations().size(), 4U);
}

// The option area alone when there is no data.
void LoadJob(WriterModel& writer, const Bytes& option, const Bytes& data = {}) {
  Write(writer, OP_START_TASK, {48});
  Write(writer, OP_CONTROL, {16});
  Write(writer, OP_SET_MODE, {71});
  for (const auto& [selector, content] : {std::pair<std::uint8_t, Bytes>{4, option}, {8, data}}) {
    if (content.empty()) continue;
    Write(writer, OP_SELECT_AREA, {selector, 23});
    Write(writer, OP_WRITE_AREA, content);
    Write(writer, OP_SELECT_AREA, {12, 7});
  }
  Write(writer, OP_SET_MODE, {7});
  Write(writer, OP_CONTROL, {144});
}

int Verdict(WriterModel& writer, std::uint8_t task) {
  Write(writer, OP_START_TASK, {task});
  int status = 0;
  for (int i = 0; i < 10 && status == 0; ++i) status = writer.Read(OP_TASK_STATUS, 1, Door::Frames)[0] & 3;
  return status;
}

Bytes Option(std::uint8_t chipClass, std::uint8_t productionFlags = 0, std::uint8_t limit = 0) {
  Bytes option(208, 0);
  option[16] = 0x12;
  option[71] = chipClass;
  option[78] = productionFlags;
  option[83] = limit;
  return option;
}

TEST(Standin, ChipsTakeWhatTheyCan) {
  // clang-format off
  for (const auto& [chip, chipClass, task, verdict] : Table<ChipState, std::uint8_t, std::uint8_t, int>{
           {ChipState::Blank, 1, 16, 1}, {ChipState::Programmed, 1, 16, 3}, {ChipState::Programmed, 17, 16, 1},
           {ChipState::Worn, 17, 16, 3}, {ChipState::Missing, 17, 16, 3}, {ChipState::Protected, 1, 20, 3},
           {ChipState::Blank, 1, 18, 1}, {ChipState::Programmed, 1, 18, 3}, {ChipState::Blank, 1, 22, 3},
           {ChipState::Worn, 1, 20, 3}}) {
    // clang-format on
    WriterModel writer;
    LoadJob(writer, Option(chipClass), {1, 2, 3});
    writer.chip.state = chip;
    EXPECT_EQ(Verdict(writer, task), verdict);
    if (task == 16 && verdict == 1) {
      EXPECT_EQ(writer.chip.burnt, (Bytes{1, 2, 3}));
    }
    EXPECT_TRUE(writer.Violations().empty());
  }
}

TEST(Standin, ProductionLimitIsUsedUp) {
  WriterModel writer;
  LoadJob(writer, Option(17, 17, 0x02), {1});
  EXPECT_EQ(Verdict(writer, 16), 1);
  EXPECT_EQ(writer.OptionArea()[244] >> 4, 0);
  EXPECT_EQ(Verdict(writer, 16), 1);
  EXPECT_EQ(writer.OptionArea()[244] >> 4, 1);
  EXPECT_EQ(Verdict(writer, 16), 3);
}

// In dual mode the job's checksum is that of the upper half; the whole one is the published CRC over all words, each
// fed as one, and the configuration word.
TEST(Standin, AChipTellsBothChecksums) {
  // The words 61, 62 and the configuration word 0063 (abc, fed one letter a word) give 1742.
  // clang-format off
  for (const auto& [chipClass, configHigh, upper, whole] : Table<std::uint8_t, std::uint8_t, int, int>{
           {1, 0x00, 0x1234, 0x1742}, {17, 0x00, 0x1234, 0x1234}, {1, 0x10, 0x1234, 0x1234}}) {
    // clang-format on
    WriterModel writer;
    Bytes option = Option(chipClass);
    option[17] = 0x34;
    option[25] = 2;  // ImageLength
    option[36] = configHigh;
    option[37] = 0x63;
    option[39] = 0x02;  // DualStart
    LoadJob(writer, option, {0x00, 0x61, 0x00, 0x62});
    EXPECT_EQ(Verdict(writer, 16), 1);
    const auto& block = writer.OptionArea();
    EXPECT_EQ(block[248] * 256 + block[249], configHigh * 256 + 0x63);
    EXPECT_EQ(block[250] * 256 + block[251], upper);
    EXPECT_EQ(block[254] * 256 + block[255], whole);
  }
}

// A series of one-byte serials at offset 1: 0x41 and on.
Bytes SeriesOption(std::uint8_t headByte, std::uint8_t amount) {
  Bytes option = Option(17);
  const Bytes head{headByte, 1, 0, 1, 0, 2};
  std::copy(head.begin(), head.end(), option.begin() + 53);
  option[111] = static_cast<std::uint8_t>(0x41 + amount);
  option[127] = 0x41;
  return option;
}

// Programs a new chip; the byte that lies in the serial's place, 0 where the writer refused.
int NextSerial(WriterModel& writer) {
  writer.chip = standin::Chip{};
  return Verdict(writer, 20) == 1 ? writer.chip.burnt.at(1) : 0;
}

TEST(Standin, WhereASeriesStartsAnew) {
  const Bytes series = SeriesOption(0x20, 9), data{1, 2, 3};
  Bytes protectedSeries = series, menu = SeriesOption(0x10, 9);
  protectedSeries[36] = 1;
  menu[16] = 0;  // a template has no checksum
  WriterModel writer;
  LoadJob(writer, series, data);
  EXPECT_EQ(NextSerial(writer), 0x41);
  EXPECT_EQ(NextSerial(writer), 0x42);
  LoadJob(writer, protectedSeries);  // Set Protect
  EXPECT_EQ(NextSerial(writer), 0x43);
  EXPECT_EQ(writer.chip.config, 0x0100);
  LoadJob(writer, series, data);
  EXPECT_EQ(NextSerial(writer), 0x41);
  EXPECT_EQ(Verdict(writer, 22), 1);
  writer.chip.burnt[1] = 0x45;  // of the series, but not given out yet
  EXPECT_EQ(Verdict(writer, 22), 3);
  for (int i = 0; i < 2; ++i) {
    LoadJob(writer, menu);
    EXPECT_EQ(NextSerial(writer), 0x41);
    EXPECT_EQ(NextSerial(writer), 0x42);
  }
}

TEST(Standin, SeriesThatAreRefused) {
  // clang-format off
  for (const auto& [why, offset, value] : Table<const char*, std::size_t, std::uint8_t>{
           {"unknown road", 53, 0xF0}, {"no length", 54, 0}, {"17 bytes", 54, 17}, {"behind the data", 56, 3},
           {"end mark", 58, 4}, {"another IC", 0, 'Q'}}) {
    // clang-format on
    WriterModel writer;
    LoadJob(writer, Option(17), {1, 2, 3});
    Bytes menu = SeriesOption(0x10, 9);
    LoadJob(writer, menu);
    EXPECT_EQ(NextSerial(writer), 0x41);
    menu[offset] = value;
    LoadJob(writer, menu);
    EXPECT_EQ(NextSerial(writer), 0) << why;
    EXPECT_TRUE(writer.chip.IsBlank()) << why;
  }
}

class StandinFiles : public Bench {};

TEST_F(StandinFiles, TheSeriesOutlivesARestart) {
  for (const std::uint8_t head : {std::uint8_t{0x11}, std::uint8_t{0x20}}) {
    WriterModel before;
    LoadJob(before, Option(17), {1, 2, 3});
    LoadJob(before, SeriesOption(head, 3), head == 0x20 ? Bytes{1, 2, 3} : Bytes{});
    EXPECT_EQ(NextSerial(before), 0x41);
    ASSERT_TRUE(before.Save(Path("state")));
    WriterModel after;
    ASSERT_TRUE(after.Restore(Path("state")));
    EXPECT_EQ(NextSerial(after), 0x42);
    EXPECT_EQ(NextSerial(after), 0x43);
    EXPECT_EQ(NextSerial(after), 0);
  }
  // A file of the first version ends behind the data area.
  WriterModel before;
  LoadJob(before, SeriesOption(0x20, 3), {1, 2, 3});
  ASSERT_TRUE(before.Save(Path("state")));
  Bytes old = Contents("state");
  old[7] = '1';
  old.resize(8 + 4 + 3 * 4 + before.Memory().size() + 512 + 3);
  Bench::Write("old", old);
  WriterModel after;
  ASSERT_TRUE(after.Restore(Path("old")));
  EXPECT_EQ(NextSerial(after), 0x41);
}

TEST_F(StandinFiles, TheJobOutlivesARestart) {
  WriterModel before;
  LoadJob(before, Option(17, 17, 0x01), {5, 6});
  Verdict(before, 16);
  ASSERT_TRUE(before.Save(Path("state")));
  WriterModel after(2);
  ASSERT_TRUE(after.Restore(Path("state")));
  EXPECT_EQ(after.DataArea(), (Bytes{5, 6}));
  EXPECT_EQ(after.Memory(), before.Memory());
  EXPECT_EQ(Verdict(after, 16), 3);  // the limit is still used up

  Bytes state = Contents("state");
  for (const std::size_t length : {std::size_t{0}, std::size_t{11}, std::size_t{100}, state.size() - 1}) {
    Bench::Write("cut", std::span(state).first(length));
    WriterModel fresh;
    EXPECT_FALSE(fresh.Restore(Path("cut"))) << length;
    EXPECT_TRUE(fresh.DataArea().empty());
  }
}

}  // namespace
}  // namespace pyxis::test
