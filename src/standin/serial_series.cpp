#include "standin/serial_series.h"

#include <algorithm>

#include "intake/package_files.h"
#include "platform/byte_order.h"

namespace pyxis::standin {

SerialSeries::Road SerialSeries::RoadOf(std::span<const std::uint8_t> option) {
  switch (FieldByte(option, Field::SerialHead) & kSerialRoadBits) {
    case 0:
      return Road::None;
    case kSerialByMenu:
      return Road::Menu;
    case kSerialBySelection:
      return Road::IcSelection;
    default:
      return Road::Unknown;
  }
}

SerialSeries::SerialSeries(std::span<const std::uint8_t> option) {
  known_ = RoadOf(option) != Road::Unknown;
  mostSignificantLast_ = (FieldByte(option, Field::SerialHead) & kLowNibble) != 0;
  length_ = option[kSerialLengthOffset];
  start_ = LoadBe16(&option[kSerialStartOffset]);
  endMark_ = LoadBe16(&option[kSerialEndMarkOffset]);
  const std::uint8_t* block = &option[Field::SerialBlock.offset];
  std::copy_n(block, end_.size(), end_.begin());
  std::copy_n(&option[kFirstSerialOffset], first_.size(), first_.begin());
  lowByteFirst_ = FieldByte(option, Field::SerialUnit) == kSerialUnitLowFirst;
  words_ = lowByteFirst_ || (FieldByte(option, Field::LengthUnit) & 0x0F) == 1;
}

Serial SerialSeries::After(Serial serial) {
  for (std::size_t i = serial.size(); i-- > 0;)
    if (++serial[i] != 0) break;
  return serial;
}

// The serial behind the very last one of 16 bytes is 0, so `next` may lie below the first.
bool SerialSeries::WasGiven(const Serial& serial, const Serial& next) const {
  const bool below = next < first_ || serial <= next;
  return serial >= first_ && below && !(serial == next && IsPast(next));
}

std::optional<std::vector<std::size_t>> SerialSeries::Places(std::size_t dataSize) const {
  if (!known_ || length_ < 1 || length_ > first_.size()) return std::nullopt;
  const int addresses = static_cast<std::uint16_t>(endMark_ - start_);
  const bool packed = words_ && addresses == length_ / 2;  // two serial bytes a word
  if (!packed && addresses != length_) return std::nullopt;
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < length_; ++i) {
    const std::size_t address = start_ + (packed ? i / 2 : i);
    const bool highByte = packed && i % 2 != 0;
    places.push_back(words_ ? 2 * address + (highByte == lowByteFirst_ ? 1 : 0) : address);
    if (places.back() >= dataSize) return std::nullopt;
  }
  if (mostSignificantLast_) std::reverse(places.begin(), places.end());
  return places;
}

}  // namespace pyxis::standin
