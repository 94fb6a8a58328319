// The events of Read, Read Chip Info, Compare File and the self-test.
#include "link/identification.h"
#include "operations/chip_info.h"
#include "operations/compare_file.h"
#include "operations/read_chip.h"
#include "operations/self_test.h"
#include "operations/tasks.h"
#include "platform/text.h"
#include "support/recorded_bench.h"

namespace pyxis::test {
namespace {

class Dialogs : public RecordedOnBoth {
 protected:
  template <typename Lines>
  static std::string Joined(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "|") + line;
    return text;
  }
  void BurnJob() {
    LoadSample("QV8348");
    TheAppState().selection.HasSmartOption = true;
    OnAuto();
    op.Heard();
  }
  const Texts off{"off Auto BlankCheck Program Verify Read SmartOption"};
  const Texts on{"on Auto BlankCheck Program Verify Read SmartOption"};
};

TEST_P(Dialogs, Read) {
  BurnJob();
  Write("readdata.txt", Bytes{1});
  const auto read = [&](std::size_t length) {
    return Texts{"bar 0-50 1", "load cursor metronom.ani", "cursor busy"} + InfoBlock() + off +
           Texts{"w START_TASK 34",
                 "wait 1000",
                 "w START_TASK 34",
                 Printf("w READ_CHIP %zu", length),
                 Printf("file readdata.txt %zu", length),
                 "hex white",
                 Printf("hex %zu", length)} +
           on + Texts{"box [Message] Read OK", "cursor arrow", "bar off", "paint"};
  };
  Start();
  OnRead();
  ExpectEvents(Texts{"wait 100"} + read(0x800));
  EXPECT_EQ(TheAppState().conversion.LoadedFilePath, Path("readdata.txt"));
  EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::None);

  // A writer that doesn't know the IC gets its template: 2000 ms and 100 ms behind each other.
  PutFolderFor("QV8121");
  Select("QV8121");
  const Bytes package = Contents("hwversion1.1/QV8121.txt");
  const Texts load =
      Texts{"w START_TASK 30", "w CONTROL 10"} + PackageFile("04", package) + Texts{"w SET_MODE 07", "w CONTROL 90"};
  Start();
  OnRead();
  ExpectEvents(load + InfoBlock() + Texts{"wait 2101"} + read(0x1010));
  OnRead();
  ExpectEvents(Texts{"wait 100"} + read(0x1010));

  // So does one with a series that came alone. A load that fails isn't waited for, and the read goes on.
  TheAppState().writer.WriterInfoBlock[53] = 16;
  writer.faults.damageAreaByte = 3;
  Start();
  OnRead();
  ExpectEvents(load + Texts{"wait 100"} + read(0x1010));
}

TEST_P(Dialogs, SelfTest) {
  struct Revision {
    const char* version;
    Texts steps;
    std::string report;
  };
  const std::string program = "Program Voltage Board Test\r\n";
  const Revision revisions[] = {
      {"1.1",
       {"00", "0A", "05"},
       "DAC Board Voltage Test \r\nDAC_VPP Voltage            Ok \r\nDAC_WVDD Voltage           Ok \r\n"
       "DAC_RVDD Voltage           Ok \r\nDAC_Level Shift Voltage    Ok \r\n\r\n" +
           program +
           "P_VPP=0V Test              Ok \r\nP_VDD=0V Test              Ok \r\nP_VPP=5V Test              Ok \r\n"
           "P_VDD=5V Test              Ok \r\nP_VPP=12.5V Test           Ok \r\nP_VDD=6V Test              Ok \r\n"},
      {"1.0",
       {"00", "30", "0A", "05"},
       program + "P_VPP=0V Test\t\t\t\tOk \r\nP_VDD=0V Test\t\t\t\tOk \r\nP_VPP=5V Test\t\t\t\tOk \r\n"
                 "P_VDD=5V Test\t\t\t\tOk \r\nP_VPP=12.5V Test\t\t    Ok \r\nP_VDD=6V Test\t\t\t\tOk \r\n"}};
  const std::string question = "ask [ , warning]  Are Disconnect Program Port Cable ? : ";
  for (const Revision& revision : revisions) {
    SCOPED_TRACE(revision.version);
    writer.identity = std::string("PYX STANDALONE LOADER_V") + revision.version;
    ReadWriterIdentity();
    EnableControl(ControlId::BufferArea, false);
    SetControlText(ControlId::BufferArea, "before");
    Start();
    WriterTest();
    ExpectEvents({question + "No"});
    op.answers = {true};
    Texts wanted{question + "Yes", "on Buffer", "hide HexView", "paint", "Buffer = ", "paint"};
    for (const char* value : {"8D 01", "44 03", "39 05", "22 07"}) {
      const std::string high(value, 2), low(value + 3);
      wanted = wanted + Texts{"w SET_MODE 47", "w TEST_SET " + (Usb() ? low + " " + high : high + " " + low)};
    }
    for (const std::string& step : revision.steps)
      wanted = wanted + Texts{"w SET_MODE 47", "w TEST_SELECT " + step, "wait 100", "w TEST_MEASURE 6"};
    WriterTest();
    ExpectEvents(wanted + Texts{"Buffer = " + revision.report, "paint", "box [Message] Test Complete", "off Buffer",
                                "show HexView", "paint", "hex paint"});
  }
}

INSTANTIATE_TEST_SUITE_P(BothTransports, Dialogs, kBothTransports);

}  // namespace
}  // namespace pyxis::test
