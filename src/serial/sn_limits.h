// How far a serial number may reach in each IC's memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pyxis {

// The highest value that start address plus length may reach; 0 for an IC that takes no serial number.
std::uint32_t SnEndLimit(std::string_view chip);

// ICs whose serial numbers have one fixed place: four bytes at that address. Nothing for the others.
std::optional<std::uint32_t> FixedSnAddress(std::string_view chip);

// ICs whose end mark counts 16-bit words.
bool SnCountsWords(std::string_view chip);

}  // namespace pyxis
