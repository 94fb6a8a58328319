#include "standin/measures.h"

namespace pyxis::standin {

namespace {

// Revisions 1.1 and 2.0 have a DAC board; its four values are the same in every step.
constexpr char kVersionWithoutDac[] = "V1.0";
constexpr std::uint8_t kDacVpp = 208, kDacWvdd = 100, kDacRvdd = 84, kDacLevelShift = 50;

struct Step {
  std::uint8_t step;
  std::uint8_t vddWithDac, vppWithDac;
  std::uint8_t vddWithoutDac, vppWithoutDac;
};
constexpr Step kSteps[] = {
    {0, 2, 2, 2, 2},
    {48, 2, 2, 2, 2},
    {10, 83, 83, 77, 77},   // 5 V on both
    {5, 99, 205, 92, 193},  // 6 V and 12.5 V
};

}  // namespace

std::optional<Measurement> SoundMeasurement(const std::string& identity, std::uint8_t step) {
  const bool dac = identity.find(kVersionWithoutDac) == std::string::npos;
  for (const Step& row : kSteps) {
    if (row.step != step) continue;
    if (dac) return Measurement{row.vddWithDac, row.vppWithDac, kDacVpp, kDacWvdd, kDacRvdd, kDacLevelShift};
    return Measurement{row.vddWithoutDac, row.vppWithoutDac};
  }
  return std::nullopt;
}

}  // namespace pyxis::standin
