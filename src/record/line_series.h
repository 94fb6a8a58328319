// A series of serial numbers as the line's record tells it, and where it goes on.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace pyxis {

// As the operator set it up; a series that goes on keeps the values of its beginning.
struct LineSeries {
  unsigned length = 0;        // bytes
  std::uint32_t address = 0;  // as the dialog counts: bytes or words
  std::string start;          // upper case digits, two a byte
  std::string amount;         // upper case digits without leading zeros
  std::string direction;      // "low" or "high"

  bool operator==(const LineSeries&) const = default;
};

// Of the dialog's texts: hexadecimal, of either case, with or without 0x.
LineSeries MakeLineSeries(const std::string& length, const std::string& address, const std::string& start,
                          const std::string& amount, const std::string& direction);

// One chip that had a serial.
struct RecordedSerial {
  std::string ic, checksum;
  LineSeries series;
  std::string serial;
  bool good = false;  // the record shows it as OK
};

// Where a series goes on: behind its highest serial that was OK. `error` tells why it can't.
struct Resumption {
  std::string start, amount, error;
  bool complete = false;  // nothing is left
};

// `checksum`: nothing while the job isn't known yet. Refused, with what differs from the record's last serial, when the
// record has no line of this series, IC and checksum; and when serials that are left have gone out in another series.
Resumption ResumeSeries(std::span<const RecordedSerial> record, const LineSeries& series, const std::string& ic,
                        const std::optional<std::string>& checksum);

// Why the series can't begin: the record shows one of its serials as OK on a chip of this IC, whatever the checksum.
// Empty when there is none. Serials of another length are other serials.
std::string SerialsGoneOut(std::span<const RecordedSerial> record, const LineSeries& series, const std::string& ic);

}  // namespace pyxis
