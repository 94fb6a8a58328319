// One chip: what goes into the socket, what goes wrong with it, and what has to agree after it.
#include <algorithm>
#include <cctype>

#include "operations/tasks.h"
#include "shell/ground/main_controls.h"
#include "soak/line.h"

namespace pyxis::soak {

namespace {

constexpr std::size_t kWriterStatus = 244;  // in the option area
constexpr std::uint8_t kUsedUp = 0x10;
constexpr int kVerdictReads = 6;

}  // namespace

void Line::PutChip() {
  switch (chance_.Below(60)) {
    case 0:
      Fails("worn chip");
      writer.chip = {};
      writer.chip.state = standin::ChipState::Worn;
      break;
    case 1:
      Fails("empty socket");
      writer.chip = {};
      writer.chip.state = standin::ChipState::Missing;
      break;
    case 2:
      Fails("chip left in the socket");
      break;
    default:
      writer.chip = {};
  }
}

bool Line::ChipTakes(Task task) const {
  switch (writer.chip.state) {
    case standin::ChipState::Blank:
      return true;
    case standin::ChipState::Programmed:
      return ic_->flash && task != Task::SerialProgram;
    default:
      return false;
  }
}

bool Line::DrawFault(Task task) {
  writer.zeroReads = static_cast<int>(chance_.Below(4));
  if (chance_.OneIn(40)) {
    Fails("task failed");
    writer.faults.failTask = 1;
    return true;
  }
  if (!chance_.OneIn(60)) return false;
  PullWithin(60, "cable pulled in a task");
  // Up to the sixth reading of the verdict: a command without data back is 3 transfers of the frames, as is a byte
  // read, whose second one brings the byte. Auto of the main window reads the information block first, with 5 commands.
  const bool frames = transport_ == test::Transport::Usb;
  const int before = (task == Task::Auto ? 5 : 0) + 1 + writer.zeroReads + kVerdictReads - 1;
  return *writer.faults.disconnectAfter < (frames ? 3 * before + 2 : before + 1);
}

void Line::PressSerial(CSnProgramDlg& dialog, Task task) {
  Expect(dialog.snProgramEnabled, "S/N Program is off in the middle of a series");
  Counters& counters = task == Task::SerialAuto ? beside_ : inMenu_;
  PutChip();
  const bool takes = ChipTakes(task);
  const bool spoilt = DrawFault(task);
  const bool allowed = task != Task::SerialAuto || limit_ == 0 || produced_ < limit_;
  const bool wanted = takes && !spoilt && allowed;
  const bool pulled = pulled_;
  ++totals_.chips;
  const bool good = dialog.OnSnProgram().Good();
  writer.faults.failTask.reset();
  Same(good, wanted, "the verdict");
  ++counters.total;
  ++(good ? counters.ok : counters.ng);
  if (good) {
    ++totals_.good;
    Expect(writer.chip.burnt == series_.Chip(data_, ic_->unit), "the chip carries " +
                                                                    Hex(series_.Carried(writer.chip.burnt, ic_->unit)) +
                                                                    " or other data, expected " + Hex(series_.Next()));
    carried_.push_back(series_.Carried(writer.chip.burnt, ic_->unit));
    ++series_.given;
    if (task == Task::SerialAuto) ++produced_;
  }
  const test::Texts heard = op.Heard();
  Same(std::uint64_t(std::count(heard.begin(), heard.end(), "Serial Number Program Complete")),
       std::uint64_t(good && series_.Done()), "how often the end is told");
  if (pulled) Replug();
  CheckWindow(dialog);
  CheckLimit();
  if (!series_.Done()) return;
  const Bytes burnt = writer.chip.burnt;
  Expect(dialog.OnSnProgram().end == End::Refused && writer.chip.burnt == burnt, "S/N Program goes on behind the last");
  CheckWindow(dialog);
  CheckNumbers();
}

void Line::PressAuto() {
  PutChip();
  const bool takes = ChipTakes(Task::Auto);
  const bool spoilt = DrawFault(Task::Auto);
  const bool usedUp = limit_ != 0 && produced_ == limit_;
  const bool pulled = pulled_;
  ++totals_.chips;
  const Outcome outcome = OnAuto();
  writer.faults.failTask.reset();
  Same(outcome.Good(), takes && !spoilt && !usedUp, "the verdict of Auto");
  if (usedUp && !pulled) Expect(outcome == Refused(Reason::LimitReached), "Auto goes on behind the production limit");
  if (outcome.Good()) {
    ++totals_.good;
    ++produced_;
    Expect(writer.chip.burnt == data_, "the chip doesn't carry the job's data");
  }
  if (pulled) Replug();
  op.told.clear();
  CheckLimit();
}

void Line::CheckWindow(const CSnProgramDlg& dialog) const {
  const Counters& counters = &dialog == SnProgressDlg().get() ? beside_ : inMenu_;
  // The first one shows as it was typed.
  std::string shown = dialog.startText;
  if (series_.given == 0) std::transform(shown.begin(), shown.end(), shown.begin(), ::toupper);
  Same(shown, series_.Shown(), "the shown serial");
  Same(dialog.endText, series_.ShownLast(), "the shown last serial");
  Same(dialog.okText, Hex(counters.ok), "OK");
  Same(dialog.ngText, Hex(counters.ng), "NG");
  Same(dialog.totalText, Hex(counters.total), "Total");
  Same(dialog.snProgramEnabled, !series_.Done(), "S/N Program on");
}

void Line::CheckLimit() const {
  const bool usedUp = limit_ != 0 && produced_ >= limit_;
  Same(writer.OptionArea().at(kWriterStatus) == kUsedUp, usedUp, "the writer's limit used up");
  const auto& left = TheMainControls().verdict.left;
  if (left) Same(std::uint64_t{*left}, limit_ - std::min(limit_, produced_), "what is left of the limit");
}

void Line::CheckNumbers() const {
  Same(std::uint64_t{carried_.size()}, series_.given, "chips of the series");
  for (std::size_t i = 0; i < carried_.size(); ++i) Same(carried_[i], Number{series_.first + i}, "a chip's serial");
}

// While the serial window shows, the main window's own tasks would take serials that it doesn't know of.
void Line::CheckTaskButtons() const {
  if (!TheAppState().selection.SnMode) return;
  for (const ControlId id : {ControlId::Auto, ControlId::BlankCheck, ControlId::Program, ControlId::Verify})
    Expect(!TheMainControls()[id].enabled, "a task button is on beside the serial window");
}

}  // namespace pyxis::soak
