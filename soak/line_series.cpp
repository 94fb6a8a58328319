// The series: its set-up on both roads, and the way through it.
#include <algorithm>
#include <cctype>

#include "operations/tasks.h"
#include "serial/sn_set.h"
#include "shell/ground/main_controls.h"
#include "soak/line.h"
#include "support/serial_entry.h"

namespace pyxis::soak {

Series Line::DrawSeries(Road road) {
  Series series;
  series.road = road;
  series.length = 1 + chance_.Below(16);
  series.address = chance_.OneIn(4) ? ic_->limit - series.length : chance_.Below(ic_->limit - series.length);
  series.direction = static_cast<int>(chance_.Below(2));
  const Number top = ~Number{0} >> 8 * (16 - series.length);
  const Number any = (Number{chance_.Next()} << 64 | chance_.Next()) & top;
  series.amount = 1 + chance_.Below(chance_.OneIn(4) ? 10 : 300);
  switch (chance_.Below(4)) {
    case 0:  // ends at the very last number
      if (Number{series.amount} <= top) {
        series.first = top - (series.amount - 1);
        break;
      }
      [[fallthrough]];
    case 1:  // small
      series.first = any & 0x1FF & top;
      break;
    default:
      series.first = any;
  }
  const Number behind = top - series.first;
  if (series.amount - 1 > behind) series.amount = static_cast<std::uint64_t>(behind) + 1;
  return series;
}

void Line::StartSeries(const Series& series) {
  series_ = series;
  series_.given = 0;
  carried_.clear();
  Note("series of length " + Text(std::uint64_t{series.length}) + " from " + Hex(series.first));
}

DialogEnd Line::FillIn(CSnSetDlg& dialog, Road road) {
  const Series series = DrawSeries(road);
  const auto typed = [&](std::string text) {
    if (chance_.OneIn(2))
      std::transform(text.begin(), text.end(), text.begin(),
                     [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
  };
  test::SerialEntry entry{Hex(series.length), Hex(series.address), typed(Hex(series.first)), typed(Hex(series.amount)),
                          series.direction};
  if (chance_.OneIn(15)) {
    Fails("set-up refused");
    test::SerialEntry refused = entry;
    if (chance_.OneIn(2))
      refused.amount.assign(1, '0');
    else
      refused.address = Hex(ic_->limit - series.length + 1);
    Expect(!test::EnterSerial(dialog, refused), "a set-up that must be refused has passed");
  }
  Expect(test::EnterSerial(dialog, entry) && dialog.written, "a sound set-up is refused");
  file_ = series;
  fileIc_ = ic_->label;
  StartSeries(series);
  return DialogEnd::Ok;
}

void Line::RunSelectionRoad() {
  Select(true);
  LoadUntilGood();
  Expect(SnProgressDlg() && SnProgressDlg()->visible, "the serial window doesn't show");
  CSnProgramDlg& dialog = *SnProgressDlg();
  if (!deviceAgain_) CheckTaskButtons();  // an arrival enables them
  PressThrough(dialog, Task::SerialAuto);
  if (chance_.OneIn(2)) return;
  dialog.OnClose();
  beside_ = {};
}

bool Line::SetUpInMenu(CSnProgramDlg& dialog) {
  bool sound = true, cancels = false;
  if (chance_.OneIn(4)) {
    sound = false;
    switch (chance_.Below(3)) {
      case 0:
        PullWithin(30, "cable pulled in a set-up");
        break;
      case 1:
        Fails("read-back damaged");
        writer.faults.damageAreaByte = chance_.Below(256);
        break;
      default:
        Fails("set-up cancelled");
        cancels = true;
    }
  }
  op.snSet = [&](CSnSetDlg& set) { return cancels ? DialogEnd::Cancel : FillIn(set, Road::Menu); };
  const bool pulled = pulled_;
  dialog.OnSnSet();
  Expect(dialog.snProgramEnabled || !sound, "a sound set-up doesn't switch S/N Program on");
  Expect(!dialog.snProgramEnabled || sound || pulled, "S/N Program is on after a set-up that failed");
  writer.faults.damageAreaByte.reset();
  if (pulled) Replug();
  op.told.clear();
  return dialog.snProgramEnabled;
}

void Line::RunMenuDialog(CSnProgramDlg& dialog) {
  inMenu_ = {};
  do {
    while (!SetUpInMenu(dialog)) {
    }
    PressThrough(dialog, Task::SerialProgram);
    CheckNumbers();
  } while (chance_.OneIn(4));
  if (chance_.OneIn(2)) dialog.OnClose();
}

void Line::RunMenuRoad() {
  RunWithoutSerials();
  op.snProgram = [&](CSnProgramDlg& dialog) {
    RunMenuDialog(dialog);
    return DialogEnd::Ok;
  };
  OnSerialNumberProgram();
  // The series lies in the place of the job's option package: Auto asks for the file.
  writer.chip = {};
  Expect(OnAuto().end == End::Refused && writer.chip.IsBlank(), "Auto burns a job whose place a series has taken");
  op.told.clear();
}

void Line::RunWithoutSerials() {
  Select(false);
  LoadUntilGood();
  for (std::uint64_t left = limit_ != 0 ? limit_ + 3 : chance_.Below(20); left > 0; --left) {
    PressAuto();
    if (chance_.OneIn(100)) SetProtect();
    CheckLimit();
  }
}

void Line::PressThrough(CSnProgramDlg& dialog, Task task) {
  const bool toTheEnd = !chance_.OneIn(4);
  const std::uint64_t stopAt = toTheEnd ? series_.amount : chance_.Below(series_.amount);
  while (series_.given < stopAt && !series_.Done()) {  // another Device on the way brings another series
    if (task == Task::SerialAuto && limit_ != 0 && produced_ == limit_ && chance_.OneIn(4)) return;
    Interlude(dialog, task);
    PressSerial(dialog, task);
  }
}

void Line::Interlude(CSnProgramDlg& dialog, Task task) {
  CheckWindow(dialog);
  if (chance_.OneIn(150)) {
    dialog.OnResetCount();
    (task == Task::SerialAuto ? beside_ : inMenu_) = {};
  }
  if (chance_.OneIn(300)) {
    Fails("cable pulled between two chips");
    Replug();
  }
  if (task != Task::SerialAuto || deviceCancelled_) return;
  if (chance_.OneIn(150)) SetProtect();
  if (chance_.OneIn(300)) CancelLoad();
  if (chance_.OneIn(150)) {
    CheckNumbers();
    LoadUntilGood();
    StartSeries(series_);
  }
  if (chance_.OneIn(400)) CancelDevice();
  CheckWindow(dialog);
}

}  // namespace pyxis::soak
