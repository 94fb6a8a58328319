// The line's record: a file with one JSON line a chip, for whoever is asked a year later what was burnt.
//
// A line in the order of its members; a text that isn't known is left out:
//   time       UTC, ISO 8601 with Z: when the chip's turn came
//   command    auto, blank, program, verify, serial or load
//   ic         the name of the job's IC
//   checksum   of the job, four hexadecimal digits as the window shows it
//   converted  when the job was converted, by the clock of the machine that did it
//   file       the program file (load)
//   serial     upper case hexadecimal digits, two a byte
//   series     length (bytes, a number), address, start, amount (hexadecimal texts), direction ("low", "high")
//   writer     identity, hardware, model, firmware
//   result     "OK", "NG", "refused" or "cancelled" (no chip was touched), "interrupted" (found half-written)
//
// On the disk: all but the result before the chip is touched, the rest and the line feed before the next one is. Each
// call that writes ends with fsync, and Open with one of the folder. A line without its line feed, or a last one that
// is no JSON, was interrupted: it counts as not done, and the next Open completes it, without losing what can be read
// of it. Blank lines are passed over.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "record/line_series.h"

namespace pyxis {

struct LineJob {
  std::string ic, checksum, converted;
};

struct LineWriter {
  std::string identity, hardware, model, firmware;
};

struct LineEntry {
  std::string time, command;
  LineJob job;
  std::string file, serial;
  std::optional<LineSeries> series;
  LineWriter writer;
};

// What a run needs of the lines that stand already: with Nothing only the first and the last are looked at, so that a
// chip of a long record costs no more than one of a new one.
enum class Wanted { Nothing, Serials };

// Functions that may fail return what the operator is to be told; empty: good. After a failed write no chip may follow.
class LineRecord {
 public:
  LineRecord() = default;
  ~LineRecord();
  LineRecord(const LineRecord&) = delete;
  LineRecord& operator=(const LineRecord&) = delete;

  // Takes the file for itself alone until the object ends: another program or object that opens it is refused.
  // `create`: one that isn't there is made. A file that holds anything but a record is refused and left as it is.
  std::string Open(const std::string& path, bool create, Wanted wanted = Wanted::Serials);
  bool IsOpen() const { return descriptor_ >= 0; }
  // What Open has found half-written, for the operator; empty when all was whole.
  const std::string& Notice() const { return notice_; }

  // Before the chip is touched.
  std::string Begin(const LineEntry& entry);
  // After the verdict. `job`: what a load has brought, in the place of the entry's.
  std::string End(const std::string& result, const LineJob* job = nullptr);

  // Every chip with a serial, in the order of the lines.
  const std::vector<RecordedSerial>& Serials() const { return serials_; }

 private:
  std::string TakeLines(Wanted wanted);
  std::string Complete(const std::string& line, std::size_t lineStart);
  std::string Append(const std::string& text);
  std::string Trouble(const char* what) const;

  std::string path_, notice_;
  int descriptor_ = -1;
  bool lineOpen_ = false, broken_ = false;
  RecordedSerial current_;
  std::vector<RecordedSerial> serials_;
};

}  // namespace pyxis
