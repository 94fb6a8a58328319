#include "operations/self_test.h"

#include <sstream>

#include "link/identification.h"
#include "platform/text.h"
#include "support/standin_bench.h"

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

TEST_P(SelfTest, AWriterThatIsGonePassesNothing) {
  usb.pluggedIn = vendor.pluggedIn = false;
  Test();
  for (const std::string& line : Report()) EXPECT_EQ(line.find("Ok"), std::string::npos) << line;
}

INSTANTIATE_TEST_SUITE_P(BothTransports, SelfTest, kBothTransports);

}  // namespace
}  // namespace pyxis::test
