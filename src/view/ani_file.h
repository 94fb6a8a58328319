// Animated cursors: RIFF files of the form ACON.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pyxis {

struct AnimatedCursor {
  struct Step {
    std::size_t frame;    // in `frames`
    std::uint32_t ticks;  // 1/60 s, from 1 to 3600
  };
  std::vector<std::span<const std::uint8_t>> frames;  // each a cursor or icon file within the file; at least one
  std::vector<Step> steps;                            // one round of the animation, at least one step
};

// Nothing for bytes that aren't a whole, consistent file. The frames are handed out as they are.
std::optional<AnimatedCursor> ReadAni(std::span<const std::uint8_t> file);

}  // namespace pyxis
