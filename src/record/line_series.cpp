#include "record/line_series.h"

#include <algorithm>

#include "platform/hex_digits.h"
#include "platform/text.h"
#include "serial/big_number.h"

namespace pyxis {

namespace {

constexpr unsigned kMostBytes = 16;  // of a serial; the dialog refuses more

std::string Padded(const std::string& digits, unsigned length) {
  const std::size_t width = std::size_t{2} * length;
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

bool Lies(const std::string& serial, const LineSeries& series) {
  BigNumber number, start, amount, end;
  number.TakeHex(serial);
  start.TakeHex(series.start);
  amount.TakeHex(series.amount);
  end.SetSum(start, amount);
  return !number.Below(start) && number.Below(end);
}

bool Above(const std::string& serial, const std::string& other) {
  BigNumber a, b;
  a.TakeHex(serial);
  b.TakeHex(other);
  return b.Below(a);
}

// The first one of the series that has gone out.
const RecordedSerial* GoneOut(std::span<const RecordedSerial> record, const LineSeries& series, const std::string& ic) {
  for (const RecordedSerial& line : record)
    if (line.good && line.ic == ic && line.series.length == series.length && Lies(line.serial, series)) return &line;
  return nullptr;
}

std::string Differences(const RecordedSerial& last, const LineSeries& series, const std::string& ic,
                        const std::optional<std::string>& checksum) {
  std::string text;
  const auto compare = [&text](const char* name, const std::string& recorded, const std::string& now) {
    if (recorded != now)
      text += Printf("%s%s %s, not %s", text.empty() ? "" : "; ", name, recorded.c_str(), now.c_str());
  };
  compare("IC", last.ic, ic);
  if (checksum) compare("checksum", last.checksum, *checksum);
  compare("length", Printf("%X", last.series.length), Printf("%X", series.length));
  compare("address", Printf("%04X", last.series.address), Printf("%04X", series.address));
  compare("start", last.series.start, series.start);
  compare("amount", last.series.amount, series.amount);
  compare("direction", last.series.direction, series.direction);
  return text;
}

Resumption Unresumable(std::string error) { return {.start = "", .amount = "", .error = std::move(error)}; }

}  // namespace

LineSeries MakeLineSeries(const std::string& length, const std::string& address, const std::string& start,
                          const std::string& amount, const std::string& direction) {
  BigNumber first, count;
  first.TakeHex(WithoutHexPrefix(start));
  count.TakeHex(WithoutHexPrefix(amount));
  const unsigned bytes = ParseHexDigits(WithoutHexPrefix(length));
  return {bytes, ParseHexDigits(WithoutHexPrefix(address)), Padded(first.Hex(), std::min(bytes, kMostBytes)),
          count.Hex(), direction};
}

Resumption ResumeSeries(std::span<const RecordedSerial> record, const LineSeries& series, const std::string& ic,
                        const std::optional<std::string>& checksum) {
  if (record.empty()) return Unresumable("The record shows no serial number; without --resume the series begins");
  bool found = false;
  std::string last;
  for (const RecordedSerial& line : record) {
    if (line.series != series || line.ic != ic || (checksum && line.checksum != *checksum)) continue;
    found = true;
    if (!line.good) continue;
    if (!Lies(line.serial, series))
      return Unresumable(Printf("The record shows serial %s, which isn't one of its series", line.serial.c_str()));
    if (last.empty() || Above(line.serial, last)) last = line.serial;
  }
  if (!found)
    return Unresumable("The record is of another series: " + Differences(record.back(), series, ic, checksum));
  LineSeries rest = series;
  bool complete = false;
  if (!last.empty()) {
    BigNumber next, start, end, amount;
    start.TakeHex(series.start);
    amount.TakeHex(series.amount);
    end.SetSum(start, amount);
    next.TakeHex(last);
    next.Increment();
    amount.SetDifference(end, next);
    rest.start = Padded(next.Hex(), series.length);
    rest.amount = amount.Hex();
    complete = amount.IsZero();
  }
  if (const RecordedSerial* other = GoneOut(record, rest, ic))
    return Unresumable(Printf("The record shows serial %s as OK in another series", other->serial.c_str()));
  return {rest.start, rest.amount, "", complete};
}

std::string SerialsGoneOut(std::span<const RecordedSerial> record, const LineSeries& series, const std::string& ic) {
  const RecordedSerial* line = GoneOut(record, series, ic);
  if (line == nullptr) return "";
  return Printf("The record shows serial %s of %s as OK already; --resume goes on behind the last one",
                line->serial.c_str(), ic.c_str());
}

}  // namespace pyxis
