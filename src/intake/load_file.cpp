#include "intake/load_file.h"

#include "catalogue/chip_catalogue.h"
#include "catalogue/file_filters.h"
#include "intake/convert.h"
#include "intake/package_files.h"
#include "intake/ready_text.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/firmware.h"
#include "options/block_fuses.h"
#include "options/fuse_panel.h"
#include "options/option_select.h"
#include "platform/language.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "serial/sn_run.h"
#include "shell/ground/app_state.h"
#include "shell/ground/busy_cursor.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/messages.h"
#include "shell/ground/selection_guard.h"
#include "shell/ground/verdict_line.h"
#include "shell/loaded_file.h"
#include "view/buffer_area.h"
#include "view/show_file.h"

namespace pyxis {

namespace {

void PaintNow() { PumpPaint(); }

ConversionResults ConvertFor(const ChipEntry& row, const std::string& path) {
  AppState& app = TheAppState();
  return ConvertFile({.ChipCode = row.ChipCode,
                      .SelectedChip = app.selection.SelectedChip,
                      .OptionValue = &app.selection.OptionValue,
                      .Path = path,
                      .SnMode = app.selection.SnMode,
                      .ExhvIsp = app.selection.ExhvIsp,
                      .MassProduction = app.selection.MassProduction != MassMode::Off,
                      .ProductionLimitOn = app.selection.ProductionLimitOn,
                      .ProductionLimitBcd = PackedDecimal(app.selection.ProductionLimitCount),
                      .IspProgram = app.selection.IspProgram,
                      .Tell = TellText});
}

void ShowResult(const ConversionResults& results) {
  AppState& app = TheAppState();
  app.conversion.JobChecksum = app.conversion.ImageChecksum;
  ShowChecksum();
  SetControlText(ControlId::FileField, app.conversion.LoadedFilePath);
  ShowFile(results.shownFile);
}

// The end of every run that got as far as showing ReadyText.
void RestoreDisplay() {
  SetReadyText("");
  FrontHexView();
  SetProgressPosition(0);
  TheAppState().writer.ProgressMode = Progress::None;
}

// What goes to the writer.
Outcome SendToWriter(std::uint32_t chipCode) {
  const Outcome firmware = SelectFirmware(chipCode);
  if (firmware.Good()) return DownloadPackages();
  TheMachine().op->Tell(kUpdateFirmwareFail);
  return firmware;
}

// The file's part of a run: the packages and what is shown of them. Whether they stand.
bool MakeJob(const ChipEntry& row, const std::string& path) {
  const ConversionResults results = ConvertFor(row, path);
  if (row.ic->protection.fromFile) SetFusePanel(TheAppState().conversion.ImageUnprotected);
  ShowResult(results);
  return results.Good();
}

// The writer's part, up to what has become of the job.
Outcome LoadJob(const ChipEntry& row, bool made) {
  if (TheAppState().writer.FirmwareLevel > kHostFirmwareLevel &&
      !TheMachine().op->Ask("Software Version is Old, Still continue to use ?", kBlankCaption, MessageIcon::Warning))
    return Cancelled(Reason::NotConfirmed);
  return made ? SendToWriter(row.ChipCode) : Failed(Reason::NotConverted);
}

// Two ends leave the writer and the serial numbers' dialog as they were: an old program that the operator doesn't want
// to use, and firmware that didn't arrive.
bool EndsEarly(const Outcome& outcome) {
  return outcome.reason == Reason::NotConfirmed || outcome.reason == Reason::FirmwareFailed;
}

// Both, and the block that the writer then has.
Outcome RunJob(const ChipEntry& row, const std::string& path) {
  AppState& app = TheAppState();
  const bool made = MakeJob(row, path);
  const BusyCursor busy(kLoadCursor);
  const Outcome outcome = LoadJob(row, made);
  if (EndsEarly(outcome) || !app.writer.WriterConnected) return outcome;
  // A block that doesn't come, as when the cable goes at the very end, must not tell the series and the limit of
  // before.
  for (const FieldPlace field : {Field::SerialHead, Field::ProductionFlags})
    app.writer.WriterInfoBlock[field.offset] = 0;
  ReadInfoBlock(app.writer.WriterInfoBlock);
  return outcome;
}

// A load that broke off, and a writer that doesn't tell its series any more, as when the cable went: it may have begun
// the series anew or not, and nobody knows which serial comes next.
bool LostTheSeries(const Outcome& outcome) {
  return (outcome.reason == Reason::OptionNotArrived || outcome.reason == Reason::DataNotArrived) &&
         FieldByte(TheAppState().writer.WriterInfoBlock, Field::SerialHead) == 0;
}

// A job has arrived: the next thing is a chip.
void AwaitChips() {
  const auto& block = TheAppState().writer.WriterInfoBlock;
  if (FieldByte(block, Field::ProductionFlags) == kProductionLimit)
    SetChipsLeft(static_cast<std::uint32_t>(TheAppState().selection.ProductionLimitCount));
  FocusControl(ControlId::Auto);
}

// The run ends before anything has been done.
Outcome GiveUp(const Outcome& outcome) {
  FrontHexView();
  BlankLoadedFile();
  SetControlText(ControlId::FileField, "");
  TheMachine().view->HexViewChanged();
  return outcome;
}

// Another job has come under one of the dialogs: the panel shows its fuses, not what was chosen for the former one.
Outcome GiveUpOtherChip() {
  const Outcome outcome = RefuseOtherChip();
  ResetFusePanel();
  ShowFuseBitsOfBlock();
  return GiveUp(outcome);
}

Outcome Run(const ChipEntry& row, const std::string& path, const SelectionGuard& guard) {
  ChooseOptions(row);
  if (!guard.SameJob()) return GiveUpOtherChip();
  if (path.empty()) {
    TheMachine().op->Tell("File is empty.", kPlainCaption);
    return Cancelled(Reason::NoFile);
  }
  SetReadyText(ComposeReadyText(TheMachine().language->GetSystemDefaultLangID()));
  const Outcome outcome = RunJob(row, path);
  RestoreDisplay();
  if (outcome.reason == Reason::FirmwareFailed) CloseLoad();
  if (EndsEarly(outcome)) return outcome;
  if (LostTheSeries(outcome)) StopSnProgress();
  BringSnProgressUpToDate(outcome.Good());
  if (outcome.Good()) AwaitChips();
  PaintNow();
  return outcome;
}

}  // namespace

const char* FileFilter(const char* fileExtension) {
  for (const FileType& type : kFileTypes)
    if (EqualsNoCase(type.extension, fileExtension)) return type.filter;
  return kObjFilter;
}

Outcome OnLoadFile() {
  AppState& app = TheAppState();
  FrontBufferArea();
  BlankLoadedFile();
  ClearVerdict();
  app.writer.ProgressMode = Progress::Transfers;
  ClearStatusText();
  const ChipEntry& row = Row(app.selection.SeriesIndex, app.selection.TypeIndex);
  const SelectionGuard guard;
  const auto path = TheMachine().op->ChooseFile({FileKind::Program, FileFilter(row.FileExtension)});
  if (!path) return GiveUp(Cancelled(Reason::NoFile));
  if (!guard.SameJob()) return GiveUpOtherChip();
  PaintNow();
  return Run(row, *path, guard);
}

}  // namespace pyxis
