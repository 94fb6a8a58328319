#include "system/system_clock.h"

#include <chrono>
#include <ctime>

namespace pyxis {

std::uint32_t SystemClock::TickCount() {
  using namespace std::chrono;
  return static_cast<std::uint32_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

LocalTime SystemClock::Now() {
  std::timespec now{};
  std::timespec_get(&now, TIME_UTC);
  std::tm local{};
  localtime_r(&now.tv_sec, &local);
  const auto field = [](long value) { return static_cast<std::uint16_t>(value); };
  return {field(local.tm_year + 1900), field(local.tm_mon + 1), field(local.tm_wday), field(local.tm_mday),
          field(local.tm_hour),        field(local.tm_min),     field(local.tm_sec),  field(now.tv_nsec / 1000000)};
}

}  // namespace pyxis
