// A run of serial numbers as the option area tells it, and how a serial lies in a chip (docs/writer-protocol.md).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace pyxis::standin {

// A serial: 16 bytes, most significant first, right aligned.
using Serial = std::array<std::uint8_t, 16>;

class SerialSeries {
 public:
  enum class Road { None, Menu, IcSelection, Unknown };
  // `option` is a whole information block. Road::Unknown: the writer can make nothing of it, and burns nothing.
  static Road RoadOf(std::span<const std::uint8_t> option);
  explicit SerialSeries(std::span<const std::uint8_t> option);

  Serial First() const { return first_; }
  bool IsPast(const Serial& next) const { return next == end_; }
  // Whether a chip may carry `serial` while `next` is the one to come.
  bool WasGiven(const Serial& serial, const Serial& next) const;

  // Offsets in DataPackage of the serial's bytes, most significant first. Nothing when the description is none, or when
  // it doesn't fit into data of that size.
  std::optional<std::vector<std::size_t>> Places(std::size_t dataSize) const;

  static Serial After(Serial serial);

 private:
  Serial first_, end_;
  bool known_;
  std::uint8_t length_;
  std::uint16_t start_, endMark_;
  bool mostSignificantLast_;
  bool words_, lowByteFirst_;
};

}  // namespace pyxis::standin
