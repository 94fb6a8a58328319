// How an operation ended. Operations return it; the On… handlers turn it into a message box, and the job runner into
// its exit code. Nobody reads a text to know how a run ended. A good end may have a reason as well: what came short.
#pragma once

namespace pyxis {

enum class End { Good, Failed, Refused, Cancelled };

// Why. One list for all operations; each operation's header names those that it gives.
enum class Reason {
  None,
  // Refusals of a task.
  OtherChip,      // the block's chip isn't the selected one
  NeedsReload,    // the option area holds a series in the place of a job
  NothingLoaded,  // the job's checksum is 0
  LimitReached,   // the production limit is used up
  NotConfirmed,   // a question was answered No
  // Load File and what it runs.
  NoFile,        // the file dialog was cancelled, or gave an empty path
  NotConverted,  // the converter has told the operator why
  FirmwareFailed,
  OptionNotArrived,  // read-back of the option package
  DataNotArrived,    // read-back of the data package
  // The others.
  VerdictFailed,  // the task's verdict, a lost link, or no verdict in time
  NotSupported,   // the chip or the job doesn't offer it
  NotReadable,    // a file or the writer gave nothing
  NotIntelHex,
  NotWritable,
  OwnTarget,      // a file that what is made of it would overwrite
  NothingToRead,  // the job leaves no word of the chip to read
  Different,      // a comparison
  OutOfRange,     // a measurement, or a value of a dialog
  OtherModel,     // a writer of another model than the offered ICs', or of none that is known
  OtherPlace,     // a series that doesn't lie where the IC wants it; good all the same
};

struct Outcome {
  End end = End::Good;
  Reason reason = Reason::None;

  bool Good() const { return end == End::Good; }
  bool operator==(const Outcome&) const = default;
};

inline constexpr Outcome kGood{};
constexpr Outcome GoodBut(Reason reason) { return {End::Good, reason}; }
constexpr Outcome Failed(Reason reason) { return {End::Failed, reason}; }
constexpr Outcome Refused(Reason reason) { return {End::Refused, reason}; }
constexpr Outcome Cancelled(Reason reason = Reason::None) { return {End::Cancelled, reason}; }

}  // namespace pyxis
