// The stand-in's honesty: what it refuses, what a chip takes, how it counts serials and chips, what a restart keeps.
#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "standin/in_process.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

using standin::ChipState;
using standin::Door;
using standin::WriterModel;

void Put(WriterModel& writer, std::uint8_t opcode, const Bytes& data) { writer.Write(opcode, data, Door::Frames); }

// A step of the protocol: a write, or a read of so many bytes where there is a length.
struct Step {
  std::uint8_t opcode;
  Bytes data;
  std::uint32_t length = 0;
};

TEST(Standin, LogsBreachesOfTheProtocol) {
  const Step testMode{OP_SET_MODE, {71}}, dac{OP_TEST_SET, {0x01, 0x8D}}, vdd{OP_TEST_SET, {0x03, 0x44}};
  const Step rvdd{OP_TEST_SET, {0x05, 0x39}}, shift{OP_TEST_SET, {0x07, 0x22}}, first{OP_TEST_SELECT, {0}};
  const Step readTask{OP_START_TASK, {52}}, readChip{OP_READ_CHIP, {}, 10}, memory{OP_SET_MODE, {0}};
  // clang-format off
  for (const auto& [why, named, steps] : Table<const char*, bool, std::vector<Step>>{
           {"unknown opcode", false, {{9, {1}}}}, {"unknown mode", false, {{OP_SET_MODE, {3}}}},
           {"long mode", false, {{OP_SET_MODE, {7, 7}}}}, {"address without mode 0", false, {{OP_SET_ADDRESS, {1, 2}}}},
           {"vendor address on frames", false, {memory, {OP_SET_ADDRESS, {0, 0, 1, 2}}}},
           {"area without selection", false, {testMode, {OP_READ_AREA, {}, 5}}},
           {"area write without a load", false, {testMode, {OP_SELECT_AREA, {4, 23}}, {OP_WRITE_AREA, {1}}}},
           {"memory write without a load", false, {memory, {OP_WRITE_MEMORY, {1}}}},
           {"begin without its task", false, {{OP_CONTROL, {16}}}}, {"unknown task", false, {{OP_START_TASK, {17}}}},
           {"no task", false, {{OP_TASK_STATUS, {}, 1}}}, {"short identity", false, {{OP_IDENTITY, {}, 25}}},
           {"chip data without a read", false, {readChip}}, {"chip read started once", true, {readTask, readChip}},
           {"chip read of nobody knows what", false, {readTask, readTask, readChip}},
           {"chip data read twice", true, {readTask, readTask, readChip, readChip}},
           {"self-test out of order", false, {testMode, dac, rvdd}},
           {"self-test value with its bytes exchanged", false, {testMode, {OP_TEST_SET, {0x8D, 0x01}}}},
           {"self-test step after half a set-up", false, {testMode, dac, vdd, first}},
           {"unknown self-test step", false, {testMode, dac, vdd, rvdd, shift, {OP_TEST_SELECT, {1}}}},
           {"measurement without a step", false, {testMode, dac, vdd, rvdd, shift, {OP_TEST_MEASURE, {}, 6}}},
           {"self-test step after another mode", false,
            {testMode, dac, vdd, rvdd, shift, {OP_SET_MODE, {7}}, testMode, first}}}) {
    // clang-format on
    WriterModel writer;
    if (named) std::copy_n("QV8348", 6, writer.OptionArea().begin());
    for (const Step& step : steps) {
      if (step.length == 0) {
        Put(writer, step.opcode, step.data);
      } else {
        writer.Read(step.opcode, step.length, Door::Frames);
      }
    }
    EXPECT_EQ(writer.Violations().size(), 1U) << why;
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
  Put(writer, OP_START_TASK, {48});
  Put(writer, OP_CONTROL, {16});
  Put(writer, OP_SET_MODE, {71});
  for (const auto& [selector, content] : {std::pair<std::uint8_t, Bytes>{4, option}, {8, data}}) {
    if (content.empty()) continue;
    Put(writer, OP_SELECT_AREA, {selector, 23});
    Put(writer, OP_WRITE_AREA, content);
    Put(writer, OP_SELECT_AREA, {12, 7});
  }
  Put(writer, OP_SET_MODE, {7});
  Put(writer, OP_CONTROL, {144});
}

// The verdict of a task, read as often as a host reads it.
int Verdict(WriterModel& writer, std::uint8_t task) {
  Put(writer, OP_START_TASK, {task});
  int status = 0;
  for (int i = 0; i < writer.zeroReads + 6; ++i) status = writer.Read(OP_TASK_STATUS, 1, Door::Vendor)[0] & 3;
  return status;
}

// An option package with a checksum, and these bytes.
Bytes Option(std::uint8_t chipClass, std::initializer_list<std::pair<std::size_t, std::uint8_t>> set = {}) {
  Bytes option(208, 0);
  option[16] = 0x12;
  option[71] = chipClass;
  for (const auto& [at, value] : set) option[at] = value;
  return option;
}

TEST(Standin, ChipsTakeWhatTheyCan) {
  // clang-format off
  for (const auto& [state, chipClass, task, verdict] : Table<ChipState, std::uint8_t, std::uint8_t, int>{
           {ChipState::Blank, 1, 16, 1}, {ChipState::Programmed, 1, 16, 3}, {ChipState::Programmed, 17, 16, 1},
           {ChipState::Worn, 17, 16, 3}, {ChipState::Missing, 17, 16, 3}, {ChipState::Protected, 1, 20, 3},
           {ChipState::Blank, 1, 18, 1}, {ChipState::Programmed, 1, 18, 3}, {ChipState::Blank, 1, 22, 3},
           {ChipState::Worn, 1, 20, 3}}) {
    // clang-format on
    WriterModel writer;
    LoadJob(writer, Option(chipClass), {1, 2, 3});
    writer.chip.state = state;
    EXPECT_EQ(Verdict(writer, task), verdict);
    if (task == 16 && verdict == 1) {
      EXPECT_EQ(writer.chip.burnt, (Bytes{1, 2, 3}));
    }
    EXPECT_TRUE(writer.Violations().empty());
  }
}

// A series of one-byte serials at offset 1: 0x41 and on.
Bytes Series(std::uint8_t headByte, std::uint8_t amount) {
  return Option(
      17, {{53, headByte}, {54, 1}, {56, 1}, {58, 2}, {111, static_cast<std::uint8_t>(0x41 + amount)}, {127, 0x41}});
}

// Programs a new chip; the byte that lies in the serial's place, 0 where the writer refused.
int NextSerial(WriterModel& writer) {
  writer.chip = standin::Chip{};
  return Verdict(writer, 20) == 1 ? writer.chip.burnt.at(1) : 0;
}

TEST(Standin, WhereASeriesStartsAnew) {
  const Bytes series = Series(0x20, 9), data{1, 2, 3};
  Bytes protectedSeries = series, menu = Series(0x10, 9);
  protectedSeries[36] = 1;
  menu[16] = 0;  // a template has no checksum
  WriterModel writer;
  LoadJob(writer, series, data);
  EXPECT_EQ(NextSerial(writer), 0x41);
  EXPECT_EQ(NextSerial(writer), 0x42);
  LoadJob(writer, protectedSeries);  // Set Protect
  EXPECT_EQ(NextSerial(writer), 0x43);
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

// The cable feeds the writer. Without the verdict's sixth reading the host takes the chip for a bad one.
TEST(Standin, AChipCountsOnceItsVerdictIsDelivered) {
  for (const auto& [task, reads, next] :
       Table<std::uint8_t, int, int>{{16, 0, 0x41}, {16, 5, 0x41}, {16, 6, 0x42}, {20, 5, 0x41}, {20, 6, 0x42}}) {
    SCOPED_TRACE(reads);
    WriterModel writer;
    LoadJob(writer, Series(0x20, 9), {1, 2, 3, 4});
    Put(writer, OP_START_TASK, {task});
    for (int i = 0; i < writer.zeroReads + reads; ++i) writer.Read(OP_TASK_STATUS, 1, Door::Vendor);
    writer.faults.disconnectAfter = 0;
    EXPECT_EQ(writer.NextTransfer(), standin::Line::Gone);
    writer.faults = {};
    EXPECT_EQ(writer.chip.burnt, reads == 6 ? (Bytes{1, 0x41, 3, 4}) : (Bytes{1, 0x41, 0xFF, 0xFF}));
    EXPECT_EQ(NextSerial(writer), next);
  }
}

// Neither a failed Auto nor one whose verdict got lost is one of the production limit.
TEST(Standin, TheLimitCountsGoodAutosAlone) {
  WriterModel writer;
  LoadJob(writer, Option(17, {{78, 17}, {83, 1}}), {1, 2});
  writer.faults.failTask = 1;
  EXPECT_EQ(Verdict(writer, 16), 3);
  Put(writer, OP_START_TASK, {16});
  writer.LoseHost();
  EXPECT_EQ(Verdict(writer, 16), 1);
  EXPECT_EQ(Verdict(writer, 16), 3);
}

TEST(Standin, SeriesThatAreRefused) {
  // clang-format off
  for (const auto& [why, offset, value] : Table<const char*, std::size_t, std::uint8_t>{
           {"unknown road", 53, 0xF0}, {"no length", 54, 0}, {"17 bytes", 54, 17}, {"behind the data", 56, 3},
           {"end mark", 58, 4}, {"another IC", 0, 'Q'}}) {
    // clang-format on
    WriterModel writer;
    LoadJob(writer, Option(17), {1, 2, 3});
    Bytes menu = Series(0x10, 9);
    LoadJob(writer, menu);
    EXPECT_EQ(NextSerial(writer), 0x41);
    menu[offset] = value;
    LoadJob(writer, menu);
    EXPECT_EQ(NextSerial(writer), 0) << why;
    EXPECT_TRUE(writer.chip.IsBlank()) << why;
  }
}

TEST(Standin, WhereAProductionStartsAnew) {
  const Bytes job = Option(17, {{0, 'Q'}, {78, 17}, {83, 0x02}}), data{5, 6};  // a limit of two chips
  Bytes isProtected = job, otherJob = job, otherChip = job;
  isProtected[36] = 1;
  otherJob[17] = 1;
  otherChip[0] = 'R';
  WriterModel writer;
  const auto autos = [&] {  // good ones in a row, and whether the area says that the limit is used up
    int count = 0;
    while (count < 9 && Verdict(writer, 16) == 1) ++count;
    return All(count, writer.OptionArea()[244] >> 4 == 1);
  };
  LoadJob(writer, job, data);
  EXPECT_EQ(Verdict(writer, 16), 1);
  LoadJob(writer, isProtected);  // Set Protect
  EXPECT_EQ(autos(), All(1, true));
  LoadJob(writer, job);
  EXPECT_EQ(writer.OptionArea()[244] >> 4, 1);
  EXPECT_EQ(autos(), All(0, true));
  for (const auto& [area, content] : {std::pair{job, data}, {otherJob, {}}, {otherChip, {}}}) {
    LoadJob(writer, area, content);
    EXPECT_EQ(writer.OptionArea()[244], 0);
    EXPECT_EQ(autos(), All(2, true));
  }
  LoadJob(writer, Option(17), data);
  EXPECT_EQ(autos(), All(9, false));
}

TEST(Standin, FaultsByTheirNames) {
  standin::Faults faults;
  for (const char* words : {"stall-after 3", "disconnect-after 4", "drop-status 5", "damage-byte 6", "damage-memory 7",
                            "fail-task 8", "no-verdict"})
    EXPECT_TRUE(SetFault(faults, words)) << words;
  EXPECT_EQ(All(faults.stallAfter, faults.disconnectAfter, faults.dropStatusBlock), All(3, 4, 5));
  EXPECT_EQ(All(faults.damageAreaByte, faults.damageMemoryByte, faults.failTask), All(6U, 7U, 8));
  EXPECT_TRUE(faults.noVerdict);
  for (const char* words : {"", "stal", "stall 1", "fail-task", "fail-task x", "fail-task 1x", "fail-task -1"})
    EXPECT_FALSE(SetFault(faults, words)) << words;
  EXPECT_TRUE(SetFault(faults, "stall"));
  EXPECT_EQ(faults.stallAfter, 0);
  EXPECT_TRUE(SetFault(faults, "no-fault"));
  EXPECT_FALSE(faults.stallAfter || faults.failTask || faults.noVerdict);
}

class StandinFiles : public Bench {};

TEST_F(StandinFiles, ARestartKeepsSeriesAndLimit) {
  for (const std::uint8_t head : {std::uint8_t{0x11}, std::uint8_t{0x20}}) {
    WriterModel before, after(Model::Km49);
    LoadJob(before, Option(17), {1, 2, 3});
    LoadJob(before, Series(head, 3), head == 0x20 ? Bytes{1, 2, 3} : Bytes{});
    EXPECT_EQ(NextSerial(before), 0x41);
    ASSERT_TRUE(before.Save(Path("state")) && after.Restore(Path("state")));
    EXPECT_EQ(after.Memory(), before.Memory());
    for (const int serial : {0x42, 0x43, 0}) EXPECT_EQ(NextSerial(after), serial);
  }
  WriterModel before, after;
  LoadJob(before, Option(17, {{78, 17}, {83, 0x02}}), {5, 6});  // a limit of two chips
  EXPECT_EQ(Verdict(before, 16), 1);
  ASSERT_TRUE(before.Save(Path("state")) && after.Restore(Path("state")));
  EXPECT_EQ(after.DataArea(), (Bytes{5, 6}));
  EXPECT_EQ(Verdict(after, 16), 1);
  EXPECT_EQ(after.OptionArea()[244] >> 4, 1);
  EXPECT_EQ(Verdict(after, 16), 3);

  const Bytes state = Contents("state");
  for (const std::size_t length : {std::size_t{0}, std::size_t{11}, std::size_t{100}, state.size() - 1}) {
    Write("cut", std::span(state).first(length));
    WriterModel fresh;
    EXPECT_FALSE(fresh.Restore(Path("cut"))) << length;
    EXPECT_TRUE(fresh.DataArea().empty());
  }
}

}  // namespace
}  // namespace pyxis::test
