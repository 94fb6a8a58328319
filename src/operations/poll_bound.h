// When RunTask gives a writer up.
#pragma once

#include <cstdint>

namespace pyxis {

// Milliseconds from the first failed status read to the last, with none good between them, after which the link counts
// as gone. The first one may have taken its time-out already, so what counts begins at its end.
inline constexpr std::uint32_t kLostLinkMs = 1000;
// Milliseconds without a verdict. The longest task, Auto on the largest IC, takes a few minutes.
inline constexpr std::uint32_t kLongestTaskMs = 30 * 60 * 1000;

}  // namespace pyxis
