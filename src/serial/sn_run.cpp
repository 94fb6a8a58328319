#include "serial/sn_run.h"

#include <algorithm>
#include <new>
#include <span>

#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/run_task.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "serial/sn_buttons.h"
#include "serial/sn_record.h"
#include "serial/sn_set.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/verdict_line.h"

namespace pyxis {

namespace {

constexpr std::size_t kLongestChipText = Field::ChipNameField.width;

std::unique_ptr<CSnProgramDlg> snProgressDlg;

// The parts that make a series the one that it is, the IC among them.
std::vector<std::uint8_t> SeriesOf(std::span<const std::uint8_t> option) {
  std::vector<std::uint8_t> series;
  for (const FieldPlace field : {Field::ChipNameField, Field::SerialHead, Field::SerialBlock}) {
    if (option.size() < field.offset + field.width) return {};
    const auto part = option.subspan(field.offset, field.width);
    series.insert(series.end(), part.begin(), part.end());
  }
  return series;
}

}  // namespace

CSnProgramDlg::CSnProgramDlg(bool snFromIcSelection) : SnFromIcSelection(snFromIcSelection) {}

void CSnProgramDlg::ShowCounters() {
  SnRecord& record = TheSnRecord();
  okText = record.SnOkText = okCount_.Hex();
  ngText = record.SnNgText = ngCount_.Hex();
  totalText = record.SnTotalText = totalCount_.Hex();
  Changed();
}

void CSnProgramDlg::OnInitDialog() {
  const SnRecord& record = TheSnRecord();
  RefreshFields();
  if (!SnFromIcSelection) {
    startText = record.SnStartText;
    endText = record.SnEndText;
  }
  ShowCounters();
}

void CSnProgramDlg::RefreshFields() {
  const SnRecord& record = TheSnRecord();
  chipText = TheAppState().selection.SelectedChip.substr(0, kLongestChipText);
  startText = HexPadded(record.SnStartText);
  endText = HexPadded(record.SnEndText);
  startAddressText = Printf("%04X", record.SnStartAddress);
  endAddressText = Printf("%04X", record.SnEndAddress);
  Changed();
}

void CSnProgramDlg::OnSnSet() {
  const AppState& app = TheAppState();
  CSnSetDlg dialog(SnFromIcSelection, app.selection.ExhvIsp, app.selection.IspProgram);
  dialog.OnInitDialog();
  const bool loaded = TheMachine().op->RunDialog(dialog) == DialogEnd::Ok;
  snProgramEnabled = loaded && app.writer.SnLoaded;
  if (snProgramEnabled) Begin(ReadWholeFile(SerialFilePath()).value_or(std::vector<std::uint8_t>{}));
  if (loaded) RefreshFields();
  Changed();
}

void CSnProgramDlg::Begin(std::span<const std::uint8_t> option) { series_ = SeriesOf(option); }

void CSnProgramDlg::OnWriterArrived() {
  snProgramEnabled = snProgramEnabled && SeriesOf(TheAppState().writer.WriterInfoBlock) == series_;
  Changed();  // the verdict goes with another job
}

Outcome CSnProgramDlg::OnSnProgram() {
  if (!snProgramEnabled) return Refused(Reason::NothingLoaded);
  const AppState& app = TheAppState();
  SnRecord& record = TheSnRecord();
  totalCount_.Increment();
  BeginVerdict();  // the former chip's goes before the window is shown anew
  ShowCounters();
  const Outcome outcome = SnFromIcSelection ? RunTaskOfDialog(task::kAuto, app.selection.AutoTicks)
                                            : RunTaskOfDialog(task::kProgram, app.selection.ProgramTicks);
  ShowVerdict(outcome.Good() ? "S/N Program OK" : "S/N Program FAIL", outcome.Good(), SnFromIcSelection);
  if (!outcome.Good()) {
    ngCount_.Increment();
    ShowCounters();
    return outcome;
  }
  workSerial_.TakeHex(record.SnStartText);
  workSerial_.Increment();
  record.SnStartText = workSerial_.Hex();
  okCount_.Increment();
  startText = HexPadded(record.SnStartText);
  ShowCounters();
  endSerial_.TakeHex(record.SnEndText);
  workSerial_.Decrement();  // the serial that this chip received
  if (!workSerial_.Equals(endSerial_)) return kGood;
  snProgramEnabled = false;
  Changed();
  TheMachine().op->Tell("Serial Number Program Complete");
  return kGood;
}

void CSnProgramDlg::OnResetCount() {
  okCount_.SetZero();
  ngCount_.SetZero();
  totalCount_.SetZero();
  ShowCounters();
}

void CSnProgramDlg::OnClose() {
  AppState& app = TheAppState();
  ResetSnRecord();
  OnResetCount();
  SnFromIcSelection = false;
  ended = true;
  if (app.writer.WriterConnected) ReadInfoBlock(app.writer.WriterInfoBlock);
  app.selection.SnMode = false;
  if (snProgressDlg) snProgressDlg->visible = false;
  if (app.writer.WriterConnected) SwitchTaskButtonsBySnMode();
  TheMachine().view->SnProgressChanged();
}

std::unique_ptr<CSnProgramDlg>& SnProgressDlg() { return snProgressDlg; }

namespace {

// False, with the operator told and nothing kept, when there is no dialog; the next Load File tries again.
bool MakeSnProgressDlg() {
  snProgressDlg.reset(new (std::nothrow) CSnProgramDlg(TheAppState().selection.SnMode));
  if (!snProgressDlg) {
    TheMachine().op->Tell("Error Creating Dialog Object", kMessageCaption, MessageIcon::Stop);
    return false;
  }
  snProgressDlg->OnInitDialog();
  if (TheMachine().view->CreateSnProgress()) return true;
  snProgressDlg.reset();
  TheMachine().op->Tell("Error creating Dialog", kMessageCaption, MessageIcon::Stop);
  return false;
}

std::string TextOf(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += Printf("%02X", byte);
  BigNumber number;
  number.TakeHex(text);
  return number.Hex();
}

// A job of an IC whose converter knows no serials has none.
bool WriterCountsSerials() { return SerialRoadOf(TheAppState().writer.WriterInfoBlock) == kSerialBySelection; }

// The series that the load has taken to the writer, which counts from its first serial on. It is the one of the record
// unless an older serial.txt lay there.
void FollowTheWriter() {
  SnRecord& record = TheSnRecord();
  const std::span<const std::uint8_t> block = TheAppState().writer.WriterInfoBlock;
  const std::span<const std::uint8_t> first = block.subspan(kFirstSerialOffset, record.SnStartBytes.size());
  const std::span<const std::uint8_t> behindLast = block.subspan(Field::SerialBlock.offset, record.SnEndBytes.size());
  record.SnStartText = TextOf(first);
  if (std::ranges::equal(record.SnStartBytes, first) && std::ranges::equal(record.SnEndBytes, behindLast)) return;
  record.SnLength = block[kSerialLengthOffset];
  BigNumber end;
  end.TakeHex(TextOf(behindLast));
  // Behind the very last number of 16 bytes the field is 0: the digit before it is left out.
  if (end.IsZero()) end.TakeHex("1" + std::string(2 * behindLast.size(), '0'));
  end.Decrement();
  record.SnEndText = end.Hex();
}

}  // namespace

void BringSnProgressUpToDate(bool arrived) {
  const AppState& app = TheAppState();
  SwitchTaskButtonsBySnMode();
  const bool counts = arrived && app.selection.SnMode && WriterCountsSerials();
  if (counts) FollowTheWriter();
  if (!snProgressDlg && !MakeSnProgressDlg()) return;
  CSnProgramDlg& dialog = *snProgressDlg;
  dialog.SnFromIcSelection = app.selection.SnMode;
  dialog.snSetEnabled = false;
  if (arrived) dialog.snProgramEnabled = counts || !app.selection.SnMode;
  if (arrived) dialog.Begin(app.writer.WriterInfoBlock);
  dialog.visible = app.selection.SnMode;
  dialog.RefreshFields();
  TheMachine().view->SnProgressChanged();
}

void StopSnProgress() {
  if (!snProgressDlg) return;
  snProgressDlg->snProgramEnabled = false;
  snProgressDlg->Changed();
}

void OnSerialNumberProgram() {
  CSnProgramDlg dialog(false);
  dialog.OnInitDialog();
  TheMachine().op->RunDialog(dialog);
  if (!dialog.ended) dialog.OnClose();  // a window that went any other way counts as closed
}

}  // namespace pyxis
