// Any bytes as an animated cursor; what comes out has to hold together.
#include <cstdlib>

#include "view/ani_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pyxis;
  const auto cursor = ReadAni({data, size});
  if (!cursor) return 0;
  if (cursor->frames.empty()) std::abort();
  for (const auto frame : cursor->frames)
    if (frame.data() < data || frame.data() + frame.size() > data + size) std::abort();
  if (cursor->steps.empty()) std::abort();
  for (const auto& step : cursor->steps)
    if (step.frame >= cursor->frames.size() || step.ticks == 0) std::abort();
  return 0;
}
