#include "shell/refresh_from_writer.h"

#include "intake/package_files.h"
#include "options/block_fuses.h"
#include "options/fuse_panel.h"
#include "platform/text.h"
#include "shell/app_state.h"
#include "shell/chip_selection.h"
#include "shell/main_controls.h"
#include "shell/mode_labels.h"

namespace pyxis {

namespace {

constexpr char kNameStart[] = "QV";  // of every name in the catalogue
constexpr std::uint8_t kExhvIspBit = 1;
constexpr std::uint8_t kIspBit = 2;
constexpr std::uint8_t kProductionBits = 0x11;

void TakeIspFlags() {
  AppState& app = TheAppState();
  const std::uint8_t flags = FieldByte(app.WriterInfoBlock, Field::IspFlags);
  app.ExhvIsp = (flags & kExhvIspBit) != 0 ? 1 : 0;
  app.IspProgram = (flags & kIspBit) != 0 ? 1 : 0;
  ShowControl(ControlId::ExhvIspLabel, app.ExhvIsp != 0);
  ShowControl(ControlId::IspLabel, app.IspProgram != 0);
}

void TakeProductionFlags() {
  AppState& app = TheAppState();
  const std::uint8_t flags = FieldByte(app.WriterInfoBlock, Field::ProductionFlags) & kProductionBits;
  if (flags == kProductionMass) {
    app.MassProduction = 1;
    ShowControl(ControlId::MassProductionLabel, true);
  } else if (flags == kProductionLimit) {
    app.ProductionLimitOn = 1;
    app.MassProduction = flags;
    ShowControl(ControlId::ProductionLimitLabel, true);
  } else {
    app.MassProduction = app.ProductionLimitOn = 0;
    ShowControl(ControlId::MassProductionLabel, false);
    ShowControl(ControlId::ProductionLimitLabel, false);
    return;
  }
  for (ControlId id : {ControlId::BlankCheck, ControlId::Program, ControlId::Verify}) EnableControl(id, false);
}

}  // namespace

void RefreshFromWriter() {
  AppState& app = TheAppState();
  const auto& block = app.WriterInfoBlock;
  if (block[0] != kNameStart[0] || block[1] != kNameStart[1]) return;
  const std::string name = ChipNameOf(block);
  ShowChipName(name);
  TakeCatalogueRow(name);
  ClearPinFigure();
  TakeIspFlags();
  TakeProductionFlags();
  if (app.WriterModel == kModelKm48) ShowPinFigure(name);
  app.ImageChecksum = FieldWord(block, Field::ImageChecksum);
  app.ChecksumText = Printf("%04X", app.ImageChecksum);
  SetControlText(ControlId::ChecksumField, app.ChecksumText);
  EnableControl(ControlId::SmartOption, app.HasSmartOption != 0);
  if (app.HasSmartOption != 0) app.SystemConfigWord = FieldWord(block, Field::ConfigWord);
  ResetFusePanel();
  ShowFuseBitsOfBlock();
}

}  // namespace pyxis
