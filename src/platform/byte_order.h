// Loads and stores of multi-byte fields. Each takes exactly as many bytes as its name says.
#pragma once

#include <cstdint>

namespace pyxis {

constexpr std::uint16_t LoadBe16(const std::uint8_t* p) { return static_cast<std::uint16_t>((p[0] << 8) | p[1]); }

constexpr std::uint16_t LoadLe16(const std::uint8_t* p) { return static_cast<std::uint16_t>((p[1] << 8) | p[0]); }

constexpr std::uint32_t LoadLe32(const std::uint8_t* p) {
  return LoadLe16(p) | (static_cast<std::uint32_t>(LoadLe16(p + 2)) << 16);
}

constexpr std::uint32_t LoadBe32(const std::uint8_t* p) {
  return (static_cast<std::uint32_t>(LoadBe16(p)) << 16) | LoadBe16(p + 2);
}

constexpr void StoreBe16(std::uint8_t* p, std::uint32_t value) {
  p[0] = static_cast<std::uint8_t>(value >> 8);
  p[1] = static_cast<std::uint8_t>(value);
}

constexpr void StoreLe16(std::uint8_t* p, std::uint32_t value) {
  p[0] = static_cast<std::uint8_t>(value);
  p[1] = static_cast<std::uint8_t>(value >> 8);
}

constexpr void StoreBe32(std::uint8_t* p, std::uint32_t value) {
  StoreBe16(p, value >> 16);
  StoreBe16(p + 2, value);
}

constexpr void StoreLe32(std::uint8_t* p, std::uint32_t value) {
  StoreLe16(p, value);
  StoreLe16(p + 2, value >> 16);
}

}  // namespace pyxis
