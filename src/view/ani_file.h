// Animated cursors: RIFF files of the form ACON.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "view/cursor_picture.h"

namespace pyxis {

struct AnimatedCursor {
  struct Step {
    std::size_t frame;    // in `frames`
    std::uint32_t ticks;  // 1/60 s, from 1 to 3600
  };
  std::vector<CursorPicture> frames;  // at least one
  std::vector<Step> steps;            // one round of the animation, at least one step
};

// Nothing for bytes that aren't a whole, consistent file, or whose frames ReadCursorPicture doesn't read.
std::optional<AnimatedCursor> ReadAni(std::span<const std::uint8_t> file);

}  // namespace pyxis
