// The events of the serial number set-up and of a run, over both transports.
#include "platform/text.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "support/recorded_bench.h"
#include "support/serial_entry.h"

namespace pyxis::test {
namespace {

class SerialEvents : public RecordedOnBoth {
 protected:
  // The fields that a press changes.
  void Follow(CSnProgramDlg& dialog) {
    dialog.Changed = [this, &dialog] {
      record.Line(dialog.startText + " of " + dialog.endText + ", OK " + dialog.okText + " NG " + dialog.ngText +
                  " Total " + dialog.totalText + (dialog.snProgramEnabled ? ", Program" : ""));
    };
  }
  Texts Sent() const {
    return Texts{"file serial.txt 256", "w START_TASK 30", "w CONTROL 10"} + PackageFile("04", Contents("serial.txt")) +
           Texts{"w SET_MODE 07", "w CONTROL 90", "wait 1500"};
  }
  static Texts Task(const std::string& byte, int divisor, bool good) {
    return Texts{"bar 0-50", "off Auto BlankCheck Program Verify Read", "paint", "w START_TASK " + byte} +
           Poll(9, divisor, 0) + Texts{"on Auto BlankCheck Program Verify Read", good ? "bar 50 off" : "bar off"};
  }
  void SetUp() override {
    LoadSample("QV8348");
    EnableControl(ControlId::SmartOption, false);
  }
};

TEST_P(SerialEvents, SetUp) {
  Start();
  CSnSetDlg menu(false, false, false);
  EnterSerial(menu, {"2", "10", "00FF", "2"});
  ExpectEvents(Sent());
  EXPECT_TRUE(menu.ended && TheAppState().writer.SnLoaded);
  const Bytes file = Contents("serial.txt");
  EXPECT_EQ(Part(file, 53, 6), (Bytes{0x10, 2, 0, 0x10, 0, 0x12}));
  EXPECT_EQ(All(Part(file, 109, 3), Part(file, 125, 3)), All(Bytes{0, 1, 1}, Bytes{0, 0, 0xFF}));

  writer.faults.damageAreaByte = 200;
  CSnSetDlg damaged(false, false, false);
  EnterSerial(damaged, {"2", "10", "00FF", "2"});
  ExpectEvents(Sent());
  EXPECT_TRUE(damaged.ended && !TheAppState().writer.SnLoaded);

  CSnSetDlg selection(true, false, false);
  EnterSerial(selection, {"2", "10", "00FF", "2", 1});
  ExpectEvents({"file serial.txt 256", "wait 1500"});
  EXPECT_EQ(Contents("serial.txt")[53], 0x21);

  // What stops the procedure, and what doesn't.
  CSnSetDlg refused(true, false, false);
  EnterSerial(refused, {"2", "3FB", "00FF", "2"});
  ExpectEvents({"box [Message, warning] S/N End Address > 0x3FC"});
  EnterSerial(refused, {"2", "10", "00FF", "0"});
  ExpectEvents({"box [Message, warning] Please Keyin 'S/N Amount'. ( >= 1 )"});
  EnterSerial(refused, {"1", "10", "FF", "2"});
  ExpectEvents({"box [Message, warning] End Serial Number > SN Length"});
  refused.OnLengthChange("11");
  ExpectEvents({"box [Message, warning] 'Input Serial Number Length Error"});
  EXPECT_FALSE(refused.ended);
  std::filesystem::remove(folder / "hwversion1.1/QV8348.txt");
  EnterSerial(refused, {"1", "10", "FE", "2"});
  ExpectEvents({"wait 1500"});
  EXPECT_TRUE(refused.ended);
}

TEST_P(SerialEvents, ARunByTheMenu) {
  const std::string zeros(32, '0');
  op.snSet = [](CSnSetDlg& dialog) {
    return EnterSerial(dialog, {"2", "10", "00FF", "2"}) ? DialogEnd::Ok : DialogEnd::Cancel;
  };
  op.snProgram = [this](CSnProgramDlg& dialog) {
    EXPECT_FALSE(dialog.snProgramEnabled);
    EXPECT_TRUE(dialog.snSetEnabled);
    Follow(dialog);
    dialog.OnSnSet();
    for (const bool good : {true, false, true}) {
      writer.chip = standin::Chip{};
      if (!good) writer.faults.failTask = 1;
      dialog.OnSnProgram();
    }
    dialog.OnSnProgram();  // the run is over
    dialog.OnResetCount();
    dialog.OnClose();
    return DialogEnd::Cancel;
  };
  Start();
  OnSerialNumberProgram();
  Texts got = record.Take();
  const std::string set = "00FF of 0100, OK 0 NG 0 Total 0, Program";
  Texts wanted = Texts{"dialog Serial Number Program", "dialog Serial Number Set"} + Sent() + Texts{"OK"};
  for (std::string& line : wanted)
    if (line.starts_with("w ")) line.replace(0, 1, Usb() ? "usb" : "api");
  ASSERT_GT(got.size(), wanted.size());
  EXPECT_EQ(Texts(got.begin(), got.begin() + static_cast<std::ptrdiff_t>(wanted.size())), wanted);
  EXPECT_EQ(TheSnRecord().SnLength, 16);
  // The lines of the fields alone, each change once.
  Texts fields;
  for (const std::string& line : got)
    if (line.find(" of ") != std::string::npos && (fields.empty() || fields.back() != line)) fields.push_back(line);
  EXPECT_EQ(fields, (Texts{set, "00FF of 0100, OK 0 NG 0 Total 1, Program", "0100 of 0100, OK 1 NG 0 Total 1, Program",
                           "0100 of 0100, OK 1 NG 0 Total 2, Program", "0100 of 0100, OK 1 NG 1 Total 2, Program",
                           "0100 of 0100, OK 1 NG 1 Total 3, Program", "0101 of 0100, OK 2 NG 1 Total 3, Program",
                           "0101 of 0100, OK 2 NG 1 Total 3", "0101 of 0100, OK 0 NG 0 Total 0"}));
}

TEST_P(SerialEvents, ARunThroughIcSelection) {
  CSnSetDlg set(true, false, false);
  ASSERT_TRUE(EnterSerial(set, {"2", "10", "00FF", "2"}));
  TheAppState().selection.SnMode = true;
  Load("samples/QV8348.hex");
  CSnProgramDlg& dialog = *SnProgressDlg();
  Follow(dialog);
  writer.chip = standin::Chip{};
  Texts task = Task("10", 4, true);
  task[1] = "off Read";  // the others are off while the mode lasts
  for (std::string& line : task)
    if (line.starts_with("on ")) line = "on Read";
  Start();
  dialog.OnSnProgram();
  ExpectEvents(Texts{"00FF of 0100, OK 0 NG 0 Total 1, Program"} + task +
               Texts{"0100 of 0100, OK 1 NG 0 Total 1, Program"});
  TheAppState().writer.WriterConnected = true;
  dialog.OnClose();
  const Texts got = record.Take();
  EXPECT_EQ(got.front(), "0100 of 0100, OK 0 NG 0 Total 0, Program");
  EXPECT_NE(std::find(got.begin(), got.end(), "on Auto BlankCheck Program Verify"), got.end());
  EXPECT_EQ(std::count(got.begin(), got.end(), (Usb() ? "usb" : "api") + std::string(" READ_AREA 512")), 1);
  EXPECT_TRUE(got.back().starts_with("S/N hidden"));
  EXPECT_FALSE(TheAppState().selection.SnMode);

  // Without a writer nothing is read, and no button comes back.
  TheAppState().writer.WriterConnected = false;
  TheAppState().selection.SnMode = true;
  for (const ControlId id : {ControlId::Auto, ControlId::Verify}) EnableControl(id, false);
  Start();
  dialog.OnClose();
  for (const std::string& line : record.Take())
    EXPECT_FALSE(line.starts_with("on ") || line.find("READ_AREA") != std::string::npos);
  EXPECT_FALSE(TheAppState().selection.SnMode);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, SerialEvents, kBothTransports);

}  // namespace
}  // namespace pyxis::test
