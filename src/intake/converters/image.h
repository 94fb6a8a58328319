// A program image as the converters read it: a byte behind the end reads as 0xFF, an erased cell.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pyxis {

class Image {
 public:
  Image() = default;
  explicit Image(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

  std::size_t Length() const { return bytes_.size(); }
  std::uint8_t Byte(std::size_t offset) const { return offset < bytes_.size() ? bytes_[offset] : 0xFF; }
  // Low byte first and high byte first, at a byte offset.
  std::uint16_t Le16(std::size_t offset) const { return Join(Byte(offset + 1), Byte(offset)); }
  std::uint16_t Be16(std::size_t offset) const { return Join(Byte(offset), Byte(offset + 1)); }
  // The word with this index, low byte first.
  std::uint16_t Word(std::size_t index) const { return Le16(2 * index); }

 private:
  static std::uint16_t Join(unsigned high, unsigned low) { return static_cast<std::uint16_t>(high << 8 | low); }
  std::vector<std::uint8_t> bytes_;
};

}  // namespace pyxis
