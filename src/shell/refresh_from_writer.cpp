#include "shell/refresh_from_writer.h"

#include <algorithm>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "options/block_fuses.h"
#include "options/fuse_panel.h"
#include "platform/files.h"
#include "shell/chip_selection.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "shell/ground/verdict_line.h"
#include "shell/loaded_file.h"
#include "shell/mode_labels.h"

namespace pyxis {

namespace {

constexpr std::uint8_t kProductionBits = kProductionMass | kProductionLimit;

void TakeIspFlags() {
  AppState& app = TheAppState();
  const std::uint8_t flags = FieldByte(app.writer.WriterInfoBlock, Field::IspFlags);
  app.selection.ExhvIsp = (flags & kExhvIspBit) != 0;
  app.selection.IspProgram = (flags & kIspBit) != 0;
  ShowControl(ControlId::ExhvIspLabel, app.selection.ExhvIsp);
  ShowControl(ControlId::IspLabel, app.selection.IspProgram);
}

void TakeProductionFlags() {
  AppState& app = TheAppState();
  const std::uint8_t flags = FieldByte(app.writer.WriterInfoBlock, Field::ProductionFlags) & kProductionBits;
  if (flags == kProductionMass) {
    app.selection.MassProduction = MassMode::On;
    ShowControl(ControlId::MassProductionLabel, true);
  } else if (flags == kProductionLimit) {
    app.selection.ProductionLimitOn = true;
    app.selection.MassProduction = MassMode::WithLimit;
    ShowControl(ControlId::ProductionLimitLabel, true);
  } else {
    app.selection.MassProduction = MassMode::Off;
    app.selection.ProductionLimitOn = false;
    ShowControl(ControlId::MassProductionLabel, false);
    ShowControl(ControlId::ProductionLimitLabel, false);
    return;
  }
  EnableControls(kSingleTasks, false);
}

// A series that the menu has put in the place of its job's description, up to the writer's own fields: of the job it
// tells the name alone.
bool IsBareSeries() {
  const auto& block = TheAppState().writer.WriterInfoBlock;
  if (SerialRoadOf(block) != kSerialByMenu) return false;
  const auto series = ReadWholeFile(SerialFilePath());
  return series && series->size() >= Field::WriterStatus.offset &&
         std::equal(block.begin(), block.begin() + Field::WriterStatus.offset, series->begin());
}

bool IsOtherJob(const std::string& name, bool bareSeries) {
  const AppState& app = TheAppState();
  if (name != app.selection.ChipNameText) return true;
  return !bareSeries && FieldWord(app.writer.WriterInfoBlock, Field::ImageChecksum) != app.conversion.JobChecksum;
}

// The file that is shown isn't the writer's job, and the verdicts weren't on it.
void DropOtherJob() {
  ClearVerdict();
  if (!TheAppState().conversion.LoadedFilePath.empty()) ForgetLoadedFile();
}

}  // namespace

void RefreshFromWriter() {
  AppState& app = TheAppState();
  const auto& block = app.writer.WriterInfoBlock;
  if (!StartsLikeAName(block)) return;
  const std::string name = ChipNameOf(block);
  const bool bareSeries = IsBareSeries();
  if (IsOtherJob(name, bareSeries)) DropOtherJob();
  ShowChipName(name);
  TakeCatalogueRow(name);
  ClearPinFigure();
  TakeIspFlags();
  TakeProductionFlags();
  if (app.writer.WriterModel == Model::Km48) ShowPinFigure(name);
  app.conversion.ImageChecksum = FieldWord(block, Field::ImageChecksum);
  if (!bareSeries) app.conversion.JobChecksum = app.conversion.ImageChecksum;
  ShowChecksum();
  EnableControl(ControlId::SmartOption, app.selection.HasSmartOption);
  if (app.selection.HasSmartOption) app.conversion.SystemConfigWord = FieldWord(block, Field::ConfigWord);
  ResetFusePanel();
  ShowFuseBitsOfBlock();
}

}  // namespace pyxis
