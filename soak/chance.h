// Numbers by chance, the same ones for the same seed on every machine.
#pragma once

#include <cstdint>

namespace pyxis::soak {

class Chance {
 public:
  explicit Chance(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    std::uint64_t z = state_ += 0x9E3779B97F4A7C15;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
  }
  // From 0 up to, but without, `end`.
  std::uint64_t Below(std::uint64_t end) { return Next() % end; }
  bool OneIn(std::uint64_t count) { return Below(count) == 0; }

 private:
  std::uint64_t state_;
};

}  // namespace pyxis::soak
