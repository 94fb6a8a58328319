#include "platform/clock.h"

#include "platform/machine.h"

namespace pyxis {

void WaitMs(std::uint32_t milliseconds) {
  Clock& clock = *TheMachine().clock;
  const std::uint32_t start = clock.TickCount();
  while (clock.TickCount() - start < milliseconds) {
  }
}

}  // namespace pyxis
