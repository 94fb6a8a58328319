// Any bytes as an animated cursor; what comes out has to hold together.
#include <cstdlib>

#include "view/ani_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pyxis;
  const auto cursor = ReadAni({data, size});
  if (!cursor) return 0;
  for (const CursorPicture& frame : cursor->frames)
    if (frame.argb.size() != static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height) ||
        frame.hotX < 0 || frame.hotX >= frame.width || frame.hotY < 0 || frame.hotY >= frame.height)
      std::abort();
  if (cursor->steps.empty()) std::abort();
  for (const auto& step : cursor->steps)
    if (step.frame >= cursor->frames.size() || step.ticks == 0) std::abort();
  return 0;
}
