// A task on the writer, from its start to its verdict, and the display around an operation.
#pragma once

#include <cstdint>
#include <optional>

#include "shell/ground/app_state.h"
#include "shell/ground/busy_cursor.h"
#include "shell/ground/outcome.h"

namespace pyxis {

// Runs a task to its end without guards: six equal non-zero readings of the status in a row. VerdictFailed when the
// verdict is failure, when the link is gone, or when no verdict came within the poll bound. `divisor` scales the count
// of reads to the bar's range of 50.
Outcome RunTask(std::uint8_t task, std::uint32_t divisor);
// The same from a dialog: the task's own bar, which is gone afterwards.
Outcome RunTaskOfDialog(std::uint8_t task, std::uint32_t divisor);

// Around an operation with a message at its end: the bar at 1 of 50, ProgressMode (2 to 6: transfers leave the bar
// alone), the busy cursor; and the cursor back, the bar gone.
class OperationDisplay {
 public:
  explicit OperationDisplay(Progress progress);
  ~OperationDisplay();
  OperationDisplay(const OperationDisplay&) = delete;
  OperationDisplay& operator=(const OperationDisplay&) = delete;
  // Before the message: ProgressMode goes back to 0.
  void EndProgress();

 private:
  std::optional<BusyCursor> cursor_;
};

}  // namespace pyxis
