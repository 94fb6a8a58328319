// Bytes of a file that is being made, appended field by field.
#pragma once

#include <string_view>

#include "platform/byte_order.h"
#include "pyxisfolder/folder.h"

namespace pyxis::folder {

class ByteWriter {
 public:
  ByteWriter& Byte(std::size_t value) {
    bytes_.push_back(static_cast<std::uint8_t>(value));
    return *this;
  }
  ByteWriter& Le16(std::size_t value) { return Byte(value).Byte(value >> 8); }
  ByteWriter& Le32(std::size_t value) { return Le16(value).Le16(value >> 16); }
  ByteWriter& Be32(std::size_t value) { return Byte(value >> 24).Byte(value >> 16).Byte(value >> 8).Byte(value); }
  ByteWriter& Text(std::string_view text) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    return *this;
  }
  ByteWriter& Append(const Bytes& more) {
    bytes_.insert(bytes_.end(), more.begin(), more.end());
    return *this;
  }
  std::size_t Size() const { return bytes_.size(); }
  Bytes Take() { return std::move(bytes_); }

 private:
  Bytes bytes_;
};

}  // namespace pyxis::folder
