// When RunTask gives a writer up.
#pragma once

#include <cstdint>

namespace pyxis {

// Failed status reads in a row after which the link counts as gone.
inline constexpr int kLostLinkReads = 100;
// Milliseconds without a verdict. The longest task, Auto on the largest IC, takes a few minutes.
inline constexpr std::uint32_t kLongestTaskMs = 30 * 60 * 1000;

}  // namespace pyxis
