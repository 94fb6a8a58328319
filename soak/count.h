// The soak's own count: what each chip of a series has to carry, and how far series and production limit have come.
// Plain arithmetic on 128 bits, and nothing of the program's.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pyxis::soak {

__extension__ using Number = unsigned __int128;
using Bytes = std::vector<std::uint8_t>;

// Upper case, without leading zeros; "0" for 0.
std::string Hex(Number value);

// Where a serial byte lies. Word and Packed: the words stand high byte first; a word takes one serial byte, its low
// one, or two, the low one first.
enum class Unit { Byte, Word, Packed };

enum class Road { Menu, Selection };

struct Series {
  Road road = Road::Menu;
  std::size_t length = 1;  // bytes
  std::size_t address = 0;
  int direction = 0;  // 1: the most significant byte at the highest address
  Number first = 0;
  std::uint64_t amount = 0;
  std::uint64_t given = 0;  // good chips

  bool Done() const { return given == amount; }
  Number Next() const { return first + given; }
  // Filled with 0 to the length. The one behind the very last number of 16 bytes has a digit more.
  std::string Shown() const;
  std::string ShownLast() const;
  // The job's data with the serial to come in it.
  Bytes Chip(Bytes data, Unit unit) const;
  // The serial that a chip carries.
  Number Carried(const Bytes& chip, Unit unit) const;

 private:
  std::vector<std::size_t> Places(Unit unit) const;  // the most significant byte first
  std::string Padded(const std::string& digits) const;
};

}  // namespace pyxis::soak
