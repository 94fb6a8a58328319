// Time as the logic needs it.
#pragma once

#include <cstdint>

namespace pyxis {

// Eight 16-bit fields in the order in which a time stamp stores them.
struct LocalTime {
  std::uint16_t year, month, dayOfWeek, day, hour, minute, second, milliseconds;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Milliseconds since some fixed moment; wraps as the platform's counter does.
  virtual std::uint32_t TickCount() = 0;
  virtual LocalTime Now() = 0;
};

// Spins on TheMachine().clock's tick count until at least that many milliseconds have passed. It neither sleeps nor
// yields and dispatches no message.
void WaitMs(std::uint32_t milliseconds);

}  // namespace pyxis
