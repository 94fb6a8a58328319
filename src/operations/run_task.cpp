#include "operations/run_task.h"

#include "link/writer_commands.h"
#include "operations/poll_bound.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

namespace {

constexpr int kProgressTop = 50;  // a task's progress runs from 0 to here
constexpr std::uint8_t kStatusBits = 3;
constexpr std::uint8_t kStatusFailed = 3;
constexpr int kEqualReadsWanted = 5;
// What stands in the buffer before a read, in turn; both mean no verdict yet. A read that leaves its mark there brought
// nothing: the only sign of a lost link on velmarapi, whose results aren't to be relied on. A writer whose status
// happens to look like one of them doesn't look like the other.
constexpr std::uint8_t kUnread[] = {0xA4, 0x58};
static_assert((kUnread[0] & kStatusBits) == 0 && (kUnread[1] & kStatusBits) == 0);

// Polls until one value has held; failure when the link is gone or the bound is over.
std::uint8_t PollVerdict(std::uint32_t divisor) {
  Clock& clock = *TheMachine().clock;
  const std::uint32_t start = clock.TickCount();
  std::uint32_t reads = 0;
  int equalReads = 0;
  std::optional<std::uint32_t> lostSince;  // the first failed read of those in a row
  std::uint8_t last = 0;
  while (equalReads != kEqualReadsWanted) {
    ++reads;
    const std::uint8_t unread = kUnread[reads % 2];
    std::uint8_t byte = unread;
    const bool good = ReadCommand(OP_TASK_STATUS, std::span(&byte, 1)) && byte != unread;
    const std::uint8_t status = byte & kStatusBits;
    if (status == last && status != 0) {
      ++equalReads;
    } else {
      equalReads = 0;
      last = status;
    }
    SetProgressPosition(static_cast<int>(reads / divisor));
    const std::uint32_t now = clock.TickCount();
    if (good) {
      lostSince.reset();
    } else if (!lostSince) {
      lostSince = now;
    }
    if ((lostSince && now - *lostSince >= kLostLinkMs) || now - start >= kLongestTaskMs) return kStatusFailed;
  }
  return last;
}

std::uint8_t VerdictOf(std::uint8_t task, std::uint32_t divisor) {
  const OperationsOff off;
  PumpPaint();
  StartTask(task);
  return PollVerdict(divisor);
}

}  // namespace

Outcome RunTask(std::uint8_t task, std::uint32_t divisor) {
  if (VerdictOf(task, divisor) == kStatusFailed) return Failed(Reason::VerdictFailed);
  SetProgressPosition(kProgressTop);
  return kGood;
}

Outcome RunTaskOfDialog(std::uint8_t task, std::uint32_t divisor) {
  TheAppState().writer.ProgressMode = Progress::None;
  SetProgressRange(0, kProgressTop);
  const Outcome outcome = RunTask(task, divisor);
  SetProgressPosition(0);
  return outcome;
}

OperationDisplay::OperationDisplay(Progress progress) {
  SetProgressRange(0, kProgressTop);
  SetProgressPosition(1);
  ClearStatusText();
  TheAppState().writer.ProgressMode = progress;
  cursor_.emplace(kTaskCursor);
}

OperationDisplay::~OperationDisplay() {
  cursor_.reset();
  SetProgressPosition(0);
  PumpPaint();
}

void OperationDisplay::EndProgress() { TheAppState().writer.ProgressMode = Progress::None; }

}  // namespace pyxis
