#include "operations/tasks.h"

#include <optional>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/poll_bound.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

namespace {

struct Operation {
  std::uint8_t task;
  Progress progress;
  std::uint32_t Selection::*divisor;
  bool refreshesBlock;  // and so heeds the production limit
  bool asksBeforeErase;
  const char* okText;
  const char* failText;
};

constexpr Operation kAuto{task::kAuto, Progress::Auto, &Selection::AutoTicks, true, false, "Auto OK", "Auto FAIL"};
constexpr Operation kBlankCheck{task::kBlankCheck, Progress::BlankCheck, &Selection::BlankTicks, false, true,
                                "BlankCheck OK",   "BlankCheck FAIL"};
constexpr Operation kProgram{task::kProgram, Progress::Program, &Selection::ProgramTicks, false, false,
                             "Program OK",   "Program FAIL"};
constexpr Operation kVerify{task::kVerify, Progress::Verify, &Selection::VerifyTicks, false, false,
                            "Verify OK",   "Verify FAIL"};

constexpr std::uint8_t kStatusBits = 3;
constexpr std::uint8_t kStatusFailed = 3;
constexpr int kEqualReadsWanted = 5;
// What stands in the buffer before a read, in turn; both mean no verdict yet. A read that leaves its mark there brought
// nothing: the only sign of a lost link on velmarapi, whose results aren't to be relied on. A writer whose status
// happens to look like one of them doesn't look like the other.
constexpr std::uint8_t kUnread[] = {0xA4, 0x58};
static_assert((kUnread[0] & kStatusBits) == 0 && (kUnread[1] & kStatusBits) == 0);

// The message of the first guard that fails, or null.
const char* RefusalOf(const Operation& operation) {
  AppState& app = TheAppState();
  if (operation.refreshesBlock) ReadInfoBlock(app.writer.WriterInfoBlock);
  const auto& block = app.writer.WriterInfoBlock;
  if (ChipNameOf(block) != app.selection.SelectedChip) return "HW and SW Chip Name is discordant";
  if (FieldByte(block, Field::SerialHead) == kSerialNeedsReload) return "Please Reload Program File";
  if (FieldWord(block, Field::ImageChecksum) == 0) return "Please Download File";
  if (operation.refreshesBlock && FieldByte(block, Field::WriterStatus) >> 4 == 1) return "Production Limit Complete";
  return nullptr;
}

// From the file, not from the block. A file that is gone asks nothing.
bool PackageIsFlash() {
  const auto package = ReadWholeFile(OptionPackagePath());
  return package && package->size() > Field::ChipClass.offset &&
         FieldByte(*package, Field::ChipClass) == kChipClassFlash;
}

void Run(const Operation& operation) {
  AppState& app = TheAppState();
  Operator& op = *TheMachine().op;
  if (const char* refusal = RefusalOf(operation); refusal != nullptr) {
    op.Tell(refusal, kMessageCaption, MessageIcon::Warning);
    return;
  }
  BeginOperation(operation.progress);
  if (operation.asksBeforeErase && PackageIsFlash() &&
      !op.Ask(" MTP/Flash series IC will clear all data ", kBlankCaption, MessageIcon::Question)) {
    app.writer.ProgressMode = Progress::None;
    EndOperation();
    return;
  }
  const bool good = RunTask(operation.task, app.selection.*operation.divisor);
  app.writer.ProgressMode = Progress::None;
  op.Tell(good ? operation.okText : operation.failText, kMessageCaption);
  EndOperation();
}

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
    const bool good = ReadCommand(OP_TASK_STATUS, std::span(&byte, 1)) != 0 && byte != unread;
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

}  // namespace

void BeginOperation(Progress progress) {
  SetProgressRange(0, kTaskProgressTop);
  SetProgressPosition(1);
  ClearStatusText();
  TheAppState().writer.ProgressMode = progress;
  BeginBusyCursor("metronom.ani");
}

void EndOperation() {
  EndBusyCursor();
  SetProgressPosition(0);
  PumpPaint();
}

bool RunTask(std::uint8_t task, std::uint32_t divisor) {
  DisableOperations();
  PumpPaint();
  StartTask(task);
  const std::uint8_t verdict = PollVerdict(divisor);
  EnableOperations();
  if (verdict == kStatusFailed) return false;
  SetProgressPosition(kTaskProgressTop);
  return true;
}

void OnAuto() { Run(kAuto); }
void OnBlankCheck() { Run(kBlankCheck); }
void OnProgram() { Run(kProgram); }
void OnVerify() { Run(kVerify); }

}  // namespace pyxis
