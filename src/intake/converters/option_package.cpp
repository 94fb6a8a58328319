#include "intake/converters/option_package.h"

namespace pyxis {

void OptionPackage::PutAt(std::size_t offset, std::uint8_t value) {
  if (offset >= bytes.size()) bytes.resize(offset + 1, 0);
  bytes[offset] = value;
}

void OptionPackage::Put(FieldPlace field, std::uint32_t value) {
  for (std::size_t i = 0; i < field.width; ++i)
    PutAt(field.offset + i, static_cast<std::uint8_t>(value >> (8 * (field.width - 1 - i))));
}

void OptionPackage::Put(FieldPlace field, std::span<const std::uint8_t> values) {
  for (std::size_t i = 0; i < values.size(); ++i) PutAt(field.offset + i, values[i]);
}

}  // namespace pyxis
