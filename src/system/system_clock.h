// The real clock: a monotonic tick count and the local time.
#pragma once

#include "platform/clock.h"

namespace pyxis {

class SystemClock : public Clock {
 public:
  std::uint32_t TickCount() override;
  LocalTime Now() override;
};

}  // namespace pyxis
