#include "operations/self_test.h"

#include <sstream>

#include "link/identification.h"
#include "platform/text.h"
#include "support/standin_bench.h"
#include "support/wire_log.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

Texts Report() {
  Texts lines;
  std::istringstream in(TheAppState().program.ReadyText);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

class SelfTest : public BothTransports {
 protected:
  void BecomeRevision(const std::string& version) {
    writer.identity = "PYX STANDALONE LOADER_V" + version;
    writer.measures.clear();
    ReadWriterIdentity();
  }
  void Test() {
    op.answers = {true};
    WriterTest();
  }
};

TEST_P(SelfTest, ASoundWriterPassesEveryTest) {
  // lines 0, 5 and the last
  // clang-format off
  for (const auto& [version, lines, some, least] : Table<const char*, std::size_t, Texts, std::uint32_t>{
           {"1.1", 13, {"DAC Board Voltage Test \r", "\r", "P_VDD=6V Test              Ok \r"}, 300},
           {"2.0", 13, {"DAC Board Voltage Test \r", "\r", "P_VDD=6V Test              Ok \r"}, 300},
           {"1.0", 7, {"Program Voltage Board Test\r", "P_VPP=12.5V Test\t\t    Ok \r", "P_VDD=6V Test\t\t\t\tOk \r"},
            400}}) {
    // clang-format on
    SCOPED_TRACE(version);
    BecomeRevision(version);
    const std::uint32_t before = clock.tick;
    Test();
    EXPECT_GE(clock.tick - before, least);
    EXPECT_EQ(op.Boxes(), (std::vector<Told>{{" Are Disconnect Program Port Cable ? ", " ", MessageIcon::Warning},
                                             {"Test Complete", "Message", MessageIcon::None}}));
    const Texts report = Report();
    ASSERT_EQ(report.size(), lines);
    EXPECT_EQ((Texts{report[0], report[5], report.back()}), some);
    for (const std::string& line : report) EXPECT_EQ(line.find("Fail"), std::string::npos) << line;
  }
  EXPECT_EQ(TheMainControls()[ControlId::BufferArea].text, TheAppState().program.ReadyText);
  EXPECT_TRUE(TheMainControls()[ControlId::HexView].visible && TheHexView().geometry.WideAddress);
}

TEST_P(SelfTest, RangesAreInclusive) {
  // clang-format off
  for (const auto& [version, step, place, lowest, highest, line, name] :
       Table<std::string, std::uint8_t, std::size_t, int, int, std::size_t, std::string>{
           {"1.1", 0, 2, 203, 214, 1, "DAC_VPP Voltage"}, {"1.1", 0, 3, 95, 105, 2, "DAC_WVDD Voltage"},
           {"1.1", 0, 4, 79, 89, 3, "DAC_RVDD Voltage"}, {"1.1", 0, 5, 45, 55, 4, "DAC_Level shift Voltage"},
           {"1.1", 0, 1, 0, 5, 7, "P_VPP=0V Test"}, {"1.1", 0, 0, 0, 5, 8, "P_VDD=0V Test"},
           {"1.1", 10, 1, 78, 88, 9, "P_VPP=5V Test"}, {"1.1", 10, 0, 78, 88, 10, "P_VDD=5V Test"},
           {"1.1", 5, 1, 197, 213, 11, "P_VPP=12.5V Test"}, {"1.1", 5, 0, 94, 104, 12, "P_VDD=6V Test"},
           {"1.0", 48, 1, 0, 5, 1, "P_VPP=0V Test\t"}, {"1.0", 48, 0, 0, 5, 2, "P_VDD=0V Test\t"},
           {"1.0", 10, 1, 71, 83, 3, "P_VPP=5V Test\t"}, {"1.0", 10, 0, 71, 83, 4, "P_VDD=5V Test\t"},
           {"1.0", 5, 1, 186, 200, 5, "P_VPP=12.5V Test"}, {"1.0", 5, 0, 86, 98, 6, "P_VDD=6V Test\t"}}) {
    // clang-format on
    const std::string badLine = version == "1.0" ? name + "\t\t\tFail \r" : Printf("%-27sFail \r", name.c_str());
    SCOPED_TRACE(badLine);
    BecomeRevision(version);
    for (const int value : {lowest - 1, lowest, highest, highest + 1}) {
      if (value < 0) continue;
      ASSERT_TRUE(writer.SetMeasure(step, place, static_cast<std::uint8_t>(value)));
      Test();
      std::size_t failed = 0;
      for (const std::string& told : Report()) failed += told.find("Fail") != std::string::npos ? 1 : 0;
      const bool good = value >= lowest && value <= highest;
      EXPECT_EQ(failed, good ? 0U : 1U) << value;
      EXPECT_EQ(Report()[line] == badLine, !good) << value;
    }
  }
}

TEST_P(SelfTest, NoChangesNothing) {
  TheAppState().program.ReadyText = "before";
  WriterTest();
  EXPECT_EQ(TheAppState().program.ReadyText, "before");
  EXPECT_EQ(op.Heard().size(), 1U);
  EXPECT_FALSE(TheHexView().geometry.WideAddress);
}

TEST_P(SelfTest, AWriterThatIsGonePassesNothing) {
  usb.pluggedIn = vendor.pluggedIn = false;
  Test();
  for (const std::string& line : Report()) EXPECT_EQ(line.find("Ok"), std::string::npos) << line;
}

INSTANTIATE_TEST_SUITE_P(BothTransports, SelfTest, kBothTransports);

class SelfTestWire : public ScriptedWriter {};

TEST_F(SelfTestWire, OrderAndTheLastGoodMeasurement) {
  op.answers = {true};
  WriterTest();
  EXPECT_EQ(vendor.calls, (Texts{"write 0: 47",    "write 3: 8D 01", "write 0: 47",    "write 3: 44 03", "write 0: 47",
                                 "write 3: 39 05", "write 0: 47",    "write 3: 22 07", "write 0: 47",    "write 1: 00",
                                 "read 5: 6",      "write 0: 47",    "write 1: 30",    "read 5: 6",      "write 0: 47",
                                 "write 1: 0A",    "read 5: 6",      "write 0: 47",    "write 1: 05",    "read 5: 6"}));
}

}  // namespace
}  // namespace pyxis::test
