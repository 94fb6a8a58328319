#include "operations/self_test.h"

#include <array>
#include <cstdint>
#include <span>

#include "link/writer_commands.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/program_folder.h"
#include "shell/ground/app_state.h"
#include "view/buffer_area.h"
#include "view/hex_view.h"

namespace pyxis {

namespace {

// Places of the six values in a measurement.
enum Measure : std::uint8_t { kPVdd, kPVpp, kDacVpp, kDacWvdd, kDacRvdd, kDacLevelShift, kMeasureCount };

struct TestRow {
  const char* heading;  // in front of the line
  std::uint8_t step;    // in which the value is measured
  Measure measure;
  std::uint8_t lowest, highest;  // of a good value
  const char* goodText;
  const char* badText;
};

// clang-format off
constexpr TestRow kWithDacBoard[] = {
    {.heading = "DAC Board Voltage Test \r\n", .step = 0, .measure = kDacVpp, .lowest = 203, .highest = 214,
     .goodText = "DAC_VPP Voltage            Ok \r\n",
     .badText = "DAC_VPP Voltage            Fail \r\n"},
    {.heading = "", .step = 0, .measure = kDacWvdd, .lowest = 95, .highest = 105,
     .goodText = "DAC_WVDD Voltage           Ok \r\n",
     .badText = "DAC_WVDD Voltage           Fail \r\n"},
    {.heading = "", .step = 0, .measure = kDacRvdd, .lowest = 79, .highest = 89,
     .goodText = "DAC_RVDD Voltage           Ok \r\n",
     .badText = "DAC_RVDD Voltage           Fail \r\n"},
    {.heading = "", .step = 0, .measure = kDacLevelShift, .lowest = 45, .highest = 55,
     .goodText = "DAC_Level Shift Voltage    Ok \r\n",
     .badText = "DAC_Level shift Voltage    Fail \r\n"},
    {.heading = "\r\nProgram Voltage Board Test\r\n", .step = 0, .measure = kPVpp, .lowest = 0, .highest = 5,
     .goodText = "P_VPP=0V Test              Ok \r\n",
     .badText = "P_VPP=0V Test              Fail \r\n"},
    {.heading = "", .step = 0, .measure = kPVdd, .lowest = 0, .highest = 5,
     .goodText = "P_VDD=0V Test              Ok \r\n",
     .badText = "P_VDD=0V Test              Fail \r\n"},
    {.heading = "", .step = 10, .measure = kPVpp, .lowest = 78, .highest = 88,
     .goodText = "P_VPP=5V Test              Ok \r\n",
     .badText = "P_VPP=5V Test              Fail \r\n"},
    {.heading = "", .step = 10, .measure = kPVdd, .lowest = 78, .highest = 88,
     .goodText = "P_VDD=5V Test              Ok \r\n",
     .badText = "P_VDD=5V Test              Fail \r\n"},
    {.heading = "", .step = 5, .measure = kPVpp, .lowest = 197, .highest = 213,
     .goodText = "P_VPP=12.5V Test           Ok \r\n",
     .badText = "P_VPP=12.5V Test           Fail \r\n"},
    {.heading = "", .step = 5, .measure = kPVdd, .lowest = 94, .highest = 104,
     .goodText = "P_VDD=6V Test              Ok \r\n",
     .badText = "P_VDD=6V Test              Fail \r\n"},
};
constexpr TestRow kWithoutDacBoard[] = {
    {.heading = "Program Voltage Board Test\r\n", .step = 48, .measure = kPVpp, .lowest = 0, .highest = 5,
     .goodText = "P_VPP=0V Test\t\t\t\tOk \r\n",
     .badText = "P_VPP=0V Test\t\t\t\tFail \r\n"},
    {.heading = "", .step = 48, .measure = kPVdd, .lowest = 0, .highest = 5,
     .goodText = "P_VDD=0V Test\t\t\t\tOk \r\n",
     .badText = "P_VDD=0V Test\t\t\t\tFail \r\n"},
    {.heading = "", .step = 10, .measure = kPVpp, .lowest = 71, .highest = 83,
     .goodText = "P_VPP=5V Test\t\t\t\tOk \r\n",
     .badText = "P_VPP=5V Test\t\t\t\tFail \r\n"},
    {.heading = "", .step = 10, .measure = kPVdd, .lowest = 71, .highest = 83,
     .goodText = "P_VDD=5V Test\t\t\t\tOk \r\n",
     .badText = "P_VDD=5V Test\t\t\t\tFail \r\n"},
    {.heading = "", .step = 5, .measure = kPVpp, .lowest = 186, .highest = 200,
     .goodText = "P_VPP=12.5V Test\t\t    Ok \r\n",
     .badText = "P_VPP=12.5V Test\t\t\tFail \r\n"},
    {.heading = "", .step = 5, .measure = kPVdd, .lowest = 86, .highest = 98,
     .goodText = "P_VDD=6V Test\t\t\t\tOk \r\n",
     .badText = "P_VDD=6V Test\t\t\t\tFail \r\n"},
};
// clang-format on

constexpr std::uint16_t kSetUp[] = {0x8D01, 0x4403, 0x3905, 0x2207};
constexpr std::uint8_t kFirstStep = 0;  // measured on every revision
constexpr std::uint32_t kAfterStepMs = 100;
// What stands in for a first measurement that doesn't come: bad in every test.
constexpr std::uint8_t kNoMeasure = 0xFF;

// One measurement; a failed transfer leaves the values of the one before.
class Meter {
 public:
  Meter() { values_.fill(kNoMeasure); }
  void Run(std::uint8_t step) {
    SendTestSelect(step);
    WaitMs(kAfterStepMs);
    ReadTestMeasure(values_);
    step_ = step;
  }
  std::uint8_t Value(std::uint8_t step, Measure measure) {
    if (step != step_) Run(step);
    return values_[measure];
  }

 private:
  std::array<std::uint8_t, kMeasureCount> values_{};
  std::uint8_t step_ = kFirstStep;
};

// Appends the report; whether every value is good.
bool MeasureAll(std::string& report) {
  for (const std::uint16_t value : kSetUp) SendTestSet(value);
  Meter meter;
  meter.Run(kFirstStep);
  const std::span<const TestRow> rows = TheAppState().writer.HwFolder == kHwFolder11
                                            ? std::span<const TestRow>(kWithDacBoard)
                                            : std::span<const TestRow>(kWithoutDacBoard);
  bool allGood = true;
  for (const TestRow& row : rows) {
    const std::uint8_t value = meter.Value(row.step, row.measure);
    report += row.heading;
    const bool good = value >= row.lowest && value <= row.highest;
    report += good ? row.goodText : row.badText;
    allGood = allGood && good;
  }
  return allGood;
}

}  // namespace

Outcome OnWriterTest() {
  Operator& op = *TheMachine().op;
  if (!op.Ask(" Are Disconnect Program Port Cable ? ", kBlankCaption, MessageIcon::Warning))
    return Cancelled(Reason::NotConfirmed);
  FrontBufferArea();
  ConfigureHexView();
  SetReadyText("");
  std::string report;
  const bool good = MeasureAll(report);
  SetReadyText(report);
  op.Tell("Test Complete");
  FrontHexView();
  TheMachine().view->HexViewChanged();
  return good ? kGood : Failed(Reason::OutOfRange);
}

}  // namespace pyxis
