#include "operations/tasks.h"

#include <optional>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/run_task.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"
#include "shell/ground/selection_guard.h"
#include "shell/ground/verdict_line.h"

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

constexpr Operation kAuto{.task = task::kAuto,
                          .progress = Progress::Auto,
                          .divisor = &Selection::AutoTicks,
                          .refreshesBlock = true,
                          .asksBeforeErase = false,
                          .okText = "Auto OK",
                          .failText = "Auto FAIL"};
constexpr Operation kBlankCheck{.task = task::kBlankCheck,
                                .progress = Progress::BlankCheck,
                                .divisor = &Selection::BlankTicks,
                                .refreshesBlock = false,
                                .asksBeforeErase = true,
                                .okText = "BlankCheck OK",
                                .failText = "BlankCheck FAIL"};
constexpr Operation kProgram{.task = task::kProgram,
                             .progress = Progress::Program,
                             .divisor = &Selection::ProgramTicks,
                             .refreshesBlock = false,
                             .asksBeforeErase = false,
                             .okText = "Program OK",
                             .failText = "Program FAIL"};
constexpr Operation kVerify{.task = task::kVerify,
                            .progress = Progress::Verify,
                            .divisor = &Selection::VerifyTicks,
                            .refreshesBlock = false,
                            .asksBeforeErase = false,
                            .okText = "Verify OK",
                            .failText = "Verify FAIL"};

// The first guard that fails.
Outcome Guard(const Operation& operation) {
  AppState& app = TheAppState();
  if (operation.refreshesBlock) ReadInfoBlock(app.writer.WriterInfoBlock);
  const auto& block = app.writer.WriterInfoBlock;
  if (ChipNameOf(block) != app.selection.SelectedChip) return Refused(Reason::OtherChip);
  if (FieldByte(block, Field::SerialHead) == kSerialNeedsReload) return Refused(Reason::NeedsReload);
  if (FieldWord(block, Field::ImageChecksum) == 0) return Refused(Reason::NothingLoaded);
  if (operation.refreshesBlock && (FieldByte(block, Field::WriterStatus) & kStatusBits) == kLimitUsedUp)
    return Refused(Reason::LimitReached);
  return kGood;
}

const char* RefusalText(Reason reason) {
  switch (reason) {
    case Reason::OtherChip:
      return kOtherChip;
    case Reason::NeedsReload:
      return "Please Reload Program File";
    case Reason::NothingLoaded:
      return "Please Download File";
    default:
      return "Production Limit Complete";
  }
}

// From the file, not from the block. A file that is gone asks nothing.
bool PackageIsFlash() {
  const auto package = ReadWholeFile(OptionPackagePath());
  return package && package->size() > Field::ChipClass.offset &&
         FieldByte(*package, Field::ChipClass) == kChipClassFlash;
}

Outcome Perform(const Operation& operation) {
  if (operation.asksBeforeErase && PackageIsFlash() &&
      !TheMachine().op->Ask(" MTP/Flash series IC will clear all data ", kBlankCaption, MessageIcon::Question))
    return Cancelled(Reason::NotConfirmed);
  BeginVerdict();
  return RunTask(operation.task, TheAppState().selection.*operation.divisor);
}

Outcome Run(const Operation& operation) {
  Operator& op = *TheMachine().op;
  if (const Outcome guard = Guard(operation); !guard.Good()) {
    if (guard.reason == Reason::LimitReached) SetChipsLeft(0);
    op.Tell(RefusalText(guard.reason), kMessageCaption, MessageIcon::Warning);
    return guard;
  }
  OperationDisplay display(operation.progress);
  const Outcome outcome = Perform(operation);
  display.EndProgress();
  if (outcome.end != End::Cancelled) {
    const char* words = outcome.Good() ? operation.okText : operation.failText;
    ShowVerdict(words, outcome.Good(), operation.refreshesBlock);
    op.Tell(words);
  }
  return outcome;
}

}  // namespace

Outcome OnAuto() { return Run(kAuto); }
Outcome OnBlankCheck() { return Run(kBlankCheck); }
Outcome OnProgram() { return Run(kProgram); }
Outcome OnVerify() { return Run(kVerify); }

}  // namespace pyxis
