// The option package while a converter builds it. A write behind the end extends it with zero bytes.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "intake/package_files.h"

namespace pyxis {

// Start and end address of a series, in serial.txt and in the package.
inline constexpr FieldPlace kSerialRange{kSerialStartOffset, 4, ByteOrder::Big};

class OptionPackage {
 public:
  std::vector<std::uint8_t> bytes;

  void PutAt(std::size_t offset, std::uint8_t value);
  void Put(FieldPlace field, std::uint32_t value);  // big-endian over the field's width
  void Put(FieldPlace field, std::span<const std::uint8_t> values);
};

}  // namespace pyxis
