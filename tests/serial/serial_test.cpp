// Serial number set-up and run: the record, serial.txt byte for byte, the counters.
#include "platform/main_view.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "shell/device_arrival.h"
#include "support/serial_entry.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class Serial : public BothTransports {
 protected:
  void PutTemplate(const std::string& chip) {
    TheAppState().selection.SelectedChip = chip;
    Write("hwversion1.1/" + chip + ".txt", Bytes(512, 0x5A));
  }
  bool Set(bool selectionRoad, const SerialEntry& entry) {
    CSnSetDlg dialog(selectionRoad, false, true);
    return EnterSerial(dialog, entry);
  }
};

TEST_P(Serial, WhatTheDialogRefuses) {
  // QV4203 takes no serial.
  const char* const noAmount = "Please Keyin 'S/N Amount'. ( >= 1 )";
  // clang-format off
  for (const auto& [chip, entry, told, closes] : Table<const char*, SerialEntry, Texts, bool>{
           {"QV8329", {"2", "3FA", "0", "1"}, {}, true},
           {"QV8329", {"2", "3FB", "0", "1"}, {"S/N End Address > 0x3FC"}, false},
           {"QV8329", {"1", "0", "FF", "1"}, {}, true},
           {"QV8329", {"1", "0", "FF", "2"}, {"End Serial Number > SN Length"}, false},
           {"QV8329", {"1", "0", "FF", "0000"}, {noAmount}, false}, {"QV8329", {"1", "0", "FF", ""}, {noAmount}, false},
           {"QV4204", {"2", "10", "0", "1"}, {"S/N Length Enter 4", "S/N Start Address Error"}, true},
           {"QV4201", {"4", "1FFD", "0", "1"}, {}, true},
           {"QV8329", {"10", "0", "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF", "1"}, {}, true},
           {"QV8329", {"2", "0", "0x00FE", "0x2"}, {}, true},
           {"QV8329", {"2", "FFFF", "0", "1"}, {"S/N End Address > 0x3FC"}, false},
           {"QV4203", {"1", "0", "0", "1"}, {"S/N End Address > 0x0"}, false}}) {
    // clang-format on
    PutTemplate(chip);
    EXPECT_EQ(Set(true, entry), closes) << entry.start << " " << entry.amount;
    EXPECT_EQ(op.Heard(), told);
  }
}

TEST_P(Serial, WhatARefusalLeavesBehind) {
  PutTemplate("QV8329");
  const SnRecord& record = TheSnRecord();
  EXPECT_FALSE(Set(true, {"2", "3FB", "12", "3"}));
  EXPECT_EQ(record.SnEndText, std::string(32, '0'));
  EXPECT_FALSE(Set(true, {"2", "10", "1a", "00"}));
  EXPECT_EQ(record.SnStartText + " " + record.SnEndText + " " + record.SnAmountText, "1a 1A 0");
  EXPECT_EQ(record.SnStartBytes[15], 0);
  EXPECT_FALSE(Set(true, {"2", "20", "FFFF", "2"}));
  EXPECT_EQ(record.SnStartText + " " + record.SnEndText + " " + record.SnAmountText, "FFFF 10000 2");
  EXPECT_EQ(record.SnStartBytes[15] + record.SnEndBytes[13] + record.SnEndBytes[15], 0xFF + 1 + 1);
  EXPECT_EQ(record.SnEndAddress, 0U);
  EXPECT_EQ(Contents("serial.txt"), Bytes{});
}

TEST_P(Serial, FilesThatFail) {
  TheAppState().selection.SelectedChip = "QV8329";
  TheAppState().writer.SnLoaded = true;
  const std::uint32_t before = clock.tick;
  EXPECT_TRUE(Set(false, {"1", "0", "1", "1"}));  // no template
  EXPECT_GE(clock.tick - before, 1500U);
  EXPECT_FALSE(std::filesystem::exists(Path("serial.txt")));
  PutTemplate("QV8329");
  std::filesystem::create_directory(Path("serial.txt"));
  EXPECT_TRUE(Set(false, {"1", "0", "1", "1"}));
  EXPECT_TRUE(TheAppState().writer.SnLoaded);
  EXPECT_TRUE(op.told.empty());
  EXPECT_EQ(writer.OptionArea()[53], 0);
  std::filesystem::remove(Path("serial.txt"));

  std::filesystem::create_symlink("/dev/full", Path("serial.txt"));
  EXPECT_FALSE(Set(false, {"1", "0", "1", "1"}));
  EXPECT_EQ(op.Heard(), Texts{Path("serial.txt") + " write file error\n"});
  EXPECT_FALSE(std::filesystem::is_symlink(Path("serial.txt")));

  Write("hwversion1.1/QV8329.txt", Bytes(100, 0x5A));
  EXPECT_TRUE(Set(true, {"1", "0", "1", "1"}));
  const Bytes file = Contents("serial.txt");
  ASSERT_EQ(file.size(), 256U);
  EXPECT_EQ(All(file[95], file[128]), All(0x5A, 0xFF));
}

TEST_P(Serial, FieldsWhileTyping) {
  CSnSetDlg dialog(false, false, false);
  dialog.OnInitDialog();
  EXPECT_EQ(dialog.lengthText, "10");
  dialog.OnLengthChange("2");
  for (const auto& [typed, shown] :
       Table<const char*, const char*>{{"12AB", "12AB"}, {"12AB5", "12AB"}, {"0x34CD", "0x34CD"}}) {
    dialog.OnStartChange(typed);
    EXPECT_EQ(dialog.startText, shown);
  }
  EXPECT_EQ(TheSnRecord().SnStartText, "34CD");
  for (const char* bad : {"", "0", "11"}) dialog.OnLengthChange(bad);
  EXPECT_EQ(op.Heard(), Texts(3, "'Input Serial Number Length Error"));
  EXPECT_EQ(TheSnRecord().SnLength, 17);
}

TEST_P(Serial, TheDialogThatCannotBeMade) {
  class NoWindow : public MainView {
    bool CreateSnProgress() override { return false; }
  } view;
  TheMachine().view = &view;
  TheAppState().selection.SnMode = true;
  BringSnProgressUpToDate(true);
  EXPECT_EQ(op.Heard(), Texts{"Error creating Dialog"});
  EXPECT_FALSE(SnProgressDlg());
}

TEST_P(Serial, ARunToItsEnd) {
  PutFolderFor("QV8348");
  Select("QV8348");
  TheAppState().selection.SnMode = true;
  ASSERT_TRUE(Set(true, {"1", "0", "0E", "3"}));
  BringSnProgressUpToDate(false);  // as after a load that failed: the writer holds no series
  EXPECT_FALSE(SnProgressDlg()->snProgramEnabled);
  LoadSample("QV8348");
  op.told.clear();
  CSnProgramDlg& dialog = *SnProgressDlg();
  EXPECT_TRUE(dialog.visible && dialog.snProgramEnabled && !dialog.snSetEnabled);
  EXPECT_FALSE(TheMainControls()[ControlId::Auto].enabled);
  // The start serial behind a press that ends with this verdict.
  const auto press = [&](bool good) {
    writer.chip = standin::Chip{};
    if (!good) writer.faults.failTask = 1;
    dialog.OnSnProgram();
    return dialog.startText;
  };
  EXPECT_EQ(press(true), "0F");
  EXPECT_EQ(press(false), "0F");
  dialog.OnResetCount();
  EXPECT_EQ(dialog.totalText, "0");
  EXPECT_EQ(press(true), "10");
  EXPECT_TRUE(op.told.empty());
  EXPECT_EQ(press(true), "11");
  EXPECT_EQ(op.Heard(), Texts{"Serial Number Program Complete"});
  EXPECT_FALSE(dialog.snProgramEnabled);
  EXPECT_EQ(dialog.okText + dialog.ngText + dialog.totalText, "202");

  LoadSample("QV8348");  // the writer begins anew, and so does the window
  EXPECT_EQ(dialog.startText, "0E");
  EXPECT_EQ(press(true), "0F");
  EXPECT_EQ(writer.chip.burnt.at(1), 0x0E);
  StopSnProgress();
  EXPECT_FALSE(dialog.snProgramEnabled);

  dialog.OnClose();
  EXPECT_EQ(All(TheSnRecord().SnLength, TheSnRecord().SnAmountText), All(16, "0"));
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(TheAppState().selection.SnMode, 0U);
  EXPECT_TRUE(TheMainControls()[ControlId::Auto].enabled);
}

// Wherever the cable is pulled in a load: S/N Program stays off, or the window shows what the writer burns next.
TEST_P(Serial, ACableThatIsPulledInALoad) {
  const std::string sample = PutFolderFor("QV8348");
  Select("QV8348");
  TheAppState().selection.SnMode = true;
  int whole = 0;  // loads that had come to their end
  for (int transfers = 0; transfers < 120; ++transfers) {
    SCOPED_TRACE(transfers);
    ASSERT_TRUE(Set(true, {"2", "10", "0A00", "9"}));
    Load(sample);
    ASSERT_EQ(op.Heard(), Texts{"Loading Data Ok"});
    CSnProgramDlg& dialog = *SnProgressDlg();
    writer.chip = standin::Chip{};
    ASSERT_TRUE(dialog.OnSnProgram().Good());
    ASSERT_TRUE(Set(true, {"1", "0", "41", "9"}));
    writer.faults.disconnectAfter = transfers;
    Load(sample);
    writer.faults.disconnectAfter = 0;
    OnDeviceEvent({DeviceEvent::Kind::Removal, kWriterInterfaceClass});
    writer.faults.disconnectAfter.reset();
    vendor.pluggedIn = true;
    OnDeviceEvent({DeviceEvent::Kind::Arrival, kWriterInterfaceClass});
    writer.chip = standin::Chip{};
    if (!dialog.OnSnProgram().Good()) continue;
    ++whole;
    EXPECT_EQ(All(dialog.startText, writer.chip.burnt.at(1)), All(std::string("42"), 0x41));
  }
  EXPECT_GT(whole, 0);
}

// The series of an older serial.txt, to the very last number.
TEST_P(Serial, AnOlderSeriesThatEndsAtTheLastNumber) {
  PutFolderFor("QV8348");
  Select("QV8348");
  TheAppState().selection.SnMode = true;
  const std::string end = std::string(32, 'F');
  ASSERT_TRUE(Set(true, {"10", "0", end, "1"}));
  const Bytes older = Contents("serial.txt");
  ASSERT_TRUE(Set(true, {"1", "0", "0E", "3"}));
  Write("serial.txt", older);
  LoadSample("QV8348");
  CSnProgramDlg& dialog = *SnProgressDlg();
  EXPECT_EQ(dialog.startText + " " + dialog.endText, end + " " + end);
  writer.chip = standin::Chip{};
  EXPECT_TRUE(dialog.OnSnProgram().Good());
  EXPECT_FALSE(dialog.snProgramEnabled);
}

TEST_P(Serial, ALoadWhoseReadBackDiffersLeavesTheRunAsItWas) {
  PutFolderFor("QV8348");
  Select("QV8348");
  TheAppState().selection.SnMode = true;
  for (const std::size_t byte : {100U, 700U}) {  // of the option package, of the data package alone
    ASSERT_TRUE(Set(true, {"1", "0", "0E", "3"}));
    LoadSample("QV8348");
    CSnProgramDlg& dialog = *SnProgressDlg();
    writer.chip = standin::Chip{};
    ASSERT_TRUE(dialog.OnSnProgram().Good());
    writer.faults.damageAreaByte = byte;
    Load("samples/QV8348.hex");
    writer.faults.damageAreaByte.reset();
    EXPECT_TRUE(dialog.snProgramEnabled) << byte;
    EXPECT_EQ(dialog.startText, "0F") << byte;
  }
}

INSTANTIATE_TEST_SUITE_P(BothTransports, Serial, kBothTransports);

}  // namespace
}  // namespace pyxis::test
