// What the stand-in writer measures in its self-test.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace pyxis::standin {

// P_VDD, P_VPP, DAC_VPP, DAC_WVDD, DAC_RVDD, DAC level shift.
using Measurement = std::array<std::uint8_t, 6>;

// The values of the set-up, in the order in which they must come.
inline constexpr std::array<std::uint16_t, 4> kTestSetUp{0x8D01, 0x4403, 0x3905, 0x2207};

// The values of a sound writer in this step, by the revision that its identity names; nothing for an unknown step.
std::optional<Measurement> SoundMeasurement(const std::string& identity, std::uint8_t step);

}  // namespace pyxis::standin
