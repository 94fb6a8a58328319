// Serial number set-up and run: the record, serial.txt byte for byte, the counters.
#include "serial/sn_limits.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "shell/app_state.h"
#include "shell/main_controls.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;

TEST(SerialLimits, Rows) {
  struct Case {
    const char* chip;
    std::uint32_t limit;
  };
  for (const Case& c : {Case{"QV8333", 0x3FB}, Case{"QV8365", 0x3FC}, Case{"QVX02", 0x400}, Case{"QV8503_8XX", 0x7FC},
                        Case{"QV8322", 0x800}, Case{"QV8378", 0xFFB}, Case{"QV8501", 0xFFC}, Case{"QV8401", 0xFFE},
                        Case{"QVL11", 0x1000}, Case{"QVL10", 0x1800}, Case{"QV8118", 0x1FFE}, Case{"QVL03", 0x1FFF},
                        Case{"QVX03", 0x2000}, Case{"QVL07", 0x3000}, Case{"QV8120", 0x3FFE}, Case{"QV8110", 0x4000},
                        Case{"QVL06", 0x6000}, Case{"QV8102", 0x7FFE}, Case{"QVL04", 0x8000}})
    EXPECT_EQ(SnEndLimit(c.chip), c.limit) << c.chip;
  EXPECT_FALSE(SnEndLimit("QV4101"));
}

class Serial : public StandinBench, public ::testing::WithParamInterface<Transport> {
 protected:
  Serial() : StandinBench(GetParam()) {}
  void PutTemplate(const std::string& chip) {
    TheAppState().SelectedChip = chip;
    Write("hwversion1.1/" + chip + ".txt", Bytes(512, 0x5A));
  }
  // Fills the dialog as an operator does, and presses Load; true when it closed.
  bool Set(bool selectionRoad, const std::string& length, const std::string& address, const std::string& start,
           const std::string& amount, int direction = 0) {
    CSnSetDlg dialog(selectionRoad, false, true);
    dialog.OnInitDialog();
    dialog.OnLengthChange(length);
    dialog.OnAddressChange(address);
    dialog.OnStartChange(start);
    dialog.OnAmountChange(amount);
    dialog.OnDirection(direction);
    op.told.clear();
    dialog.OnLoad();
    return dialog.ended;
  }
};

TEST_P(Serial, TheFileByteForByte) {
  PutTemplate("QV8329");
  TheAppState().WriterModel = kModelKm49;
  ASSERT_TRUE(Set(true, "2", "03FA", "00FF", "0002", 1));
  EXPECT_EQ(TheSnRecord().SnEndText, "100");
  EXPECT_EQ(TheSnRecord().SnEndAddress, 0x3FBU);
  Bytes expected(256, 0x5A);
  const Bytes head{0x21, 2, 0x03, 0xFA, 0x03, 0xFC};
  std::copy(head.begin(), head.end(), expected.begin() + 53);
  expected[76] = 1;
  std::fill(expected.begin() + 96, expected.begin() + 128, std::uint8_t{0});
  expected[110] = 0x01;
  expected[111] = 0x01;
  expected[127] = 0xFF;
  expected[207] = 0x99;
  EXPECT_EQ(Contents("serial.txt"), expected);
  EXPECT_EQ(TheAppState().SnLoaded, 0);
  EXPECT_EQ(writer.OptionArea()[53], 0);  // not sent on this road

  ASSERT_TRUE(Set(false, "2", "03FA", "00FF", "0002"));
  EXPECT_EQ(TheAppState().SnLoaded, 1);
  EXPECT_EQ(writer.OptionArea()[53], 0x10);
  PutTemplate("QV4204");
  ASSERT_TRUE(Set(true, "4", "3FFD", "1", "1"));
  EXPECT_EQ(Contents("serial.txt")[58], 0xFF);  // two words behind 0x3FFD
}

TEST_P(Serial, WhatTheDialogRefuses) {
  struct Case {
    const char *chip, *length, *address, *start, *amount;
    Texts told;
    bool closes;
  };
  for (const Case& c : {
           Case{"QV8329", "2", "3FA", "0", "1", {}, true},
           Case{"QV8329", "2", "3FB", "0", "1", {"S/N End Address > 0x3FC"}, false},
           Case{"QV8329", "1", "0", "FF", "1", {}, true},
           Case{"QV8329", "1", "0", "FF", "2", {"End Serial Number > SN Length"}, false},
           Case{"QV8329", "1", "0", "FF", "0000", {"Please Keyin 'S/N Amount'. ( >= 1 )"}, false},
           Case{"QV8329", "1", "0", "FF", "", {"Please Keyin 'S/N Amount'. ( >= 1 )"}, false},
           Case{"QV4204", "2", "10", "0", "1", {"S/N Length Enter 4", "S/N Start Address Error"}, true},
           Case{"QV4201", "4", "1FFD", "0", "1", {}, true},
           Case{"QV8329", "10", "0", "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF", "1", {}, true},
           Case{"QV8329", "2", "0", "0x00FE", "0x2", {}, true},
       }) {
    PutTemplate(c.chip);
    EXPECT_EQ(Set(true, c.length, c.address, c.start, c.amount), c.closes) << c.start << " " << c.amount;
    EXPECT_EQ(op.Texts(), c.told);
  }
}

TEST_P(Serial, FieldsWhileTyping) {
  CSnSetDlg dialog(false, false, false);
  dialog.OnInitDialog();
  EXPECT_EQ(dialog.lengthText, "10");
  EXPECT_EQ(dialog.addressText, "0000");
  EXPECT_EQ(dialog.amountText, "0");
  dialog.OnLengthChange("2");
  EXPECT_EQ(dialog.startText, "0000");
  dialog.OnStartChange("12AB");
  dialog.OnStartChange("12AB5");
  EXPECT_EQ(dialog.startText, "12AB");
  for (const char* bad : {"", "0", "11"}) dialog.OnLengthChange(bad);
  EXPECT_EQ(op.Texts(), Texts(3, "'Input Serial Number Length Error"));
  EXPECT_EQ(TheSnRecord().SnLength, 17);
}

// Runs a press, with the verdict that the writer shall give.
void Press(CSnProgramDlg& dialog, standin::WriterModel& writer, bool good) {
  writer.chip = standin::Chip{};
  if (!good) writer.faults.failTask = 1;
  dialog.OnSnProgram();
}

TEST_P(Serial, ARunToItsEnd) {
  LoadSample("QV8348");
  PutTemplate("QV8348");
  TheAppState().SnMode = 1;
  ASSERT_TRUE(Set(true, "1", "0", "0E", "3"));
  BringSnProgressUpToDate();
  CSnProgramDlg& dialog = *SnProgressDlg();
  EXPECT_TRUE(dialog.visible && dialog.snProgramEnabled && !dialog.snSetEnabled);
  EXPECT_FALSE(TheMainControls()[ControlId::Auto].enabled);
  op.told.clear();
  Press(dialog, writer, true);
  EXPECT_EQ(dialog.startText, "0F");
  Press(dialog, writer, false);
  EXPECT_EQ(dialog.startText, "0F");
  dialog.OnResetCount();
  EXPECT_EQ(dialog.totalText, "0");
  Press(dialog, writer, true);
  EXPECT_TRUE(op.told.empty());
  Press(dialog, writer, true);
  EXPECT_EQ(op.Texts(), Texts{"Serial Number Program Complete"});
  EXPECT_FALSE(dialog.snProgramEnabled);
  EXPECT_EQ(dialog.startText, "11");
  EXPECT_EQ(dialog.okText + dialog.ngText + dialog.totalText, "202");

  dialog.OnClose();
  EXPECT_EQ(TheSnRecord().SnLength, 16);
  EXPECT_EQ(TheSnRecord().SnAmountText, "0");
  EXPECT_FALSE(dialog.visible);
  EXPECT_EQ(TheAppState().SnMode, 0U);
  EXPECT_TRUE(TheMainControls()[ControlId::Auto].enabled);
}

TEST_P(Serial, TheMenuRoad) {
  PutTemplate("QV8348");
  op.snSet = [&](CSnSetDlg& dialog) {
    dialog.OnLengthChange("2");
    dialog.OnStartChange("12");
    dialog.OnAmountChange("1");
    dialog.OnLoad();
    return dialog.ended ? DialogEnd::Ok : DialogEnd::Cancel;
  };
  CSnProgramDlg dialog(false);
  dialog.OnInitDialog();
  EXPECT_FALSE(dialog.snProgramEnabled);
  EXPECT_EQ(dialog.startText, std::string(32, '0'));
  dialog.OnSnSet();
  EXPECT_TRUE(dialog.snProgramEnabled);
  EXPECT_EQ(dialog.startText, "0012");
  writer.faults.damageAreaByte = 3;
  dialog.OnSnSet();
  EXPECT_FALSE(dialog.snProgramEnabled);
  op.snSet = nullptr;
  dialog.OnSnSet();
  EXPECT_FALSE(dialog.snProgramEnabled);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, Serial, ::testing::Values(Transport::Usb, Transport::Vendor));

}  // namespace
}  // namespace pyxis::test
