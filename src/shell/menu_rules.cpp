#include "shell/menu_rules.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

const MenuEntries& EntriesOfChip() { return IcOrUnknown(TheAppState().selection.ChipNameText).menus; }

bool ChipAndWriter() { return !TheAppState().selection.ChipNameText.empty() && TheAppState().writer.WriterConnected; }

bool ChipInfoAllowed() {
  const AppState& app = TheAppState();
  return EntriesOfChip().readChipInfo && app.selection.MassProduction != MassMode::On &&
         !app.selection.ProductionLimitOn && FieldByte(app.writer.WriterInfoBlock, Field::ProductionFlags) == 0;
}

}  // namespace

bool MenuEnabled(MenuEntry entry) {
  switch (entry) {
    case MenuEntry::LoadFile:
    case MenuEntry::CompareFile:
    case MenuEntry::SetProtect:
      return ChipAndWriter();
    case MenuEntry::SerialNumberProgram:
      return ChipAndWriter() && EntriesOfChip().serialNumberProgram;
    case MenuEntry::ReadChipInfo:
      return ChipAndWriter() && ChipInfoAllowed();
    case MenuEntry::SaveAs:
      return false;
    case MenuEntry::Exit:
    case MenuEntry::Device:
    case MenuEntry::UpdateFirmware:
    case MenuEntry::CheckNewVersion:
    case MenuEntry::About:
      break;
  }
  return true;
}

const char* CaptionOf(MenuEntry entry) {
  switch (entry) {
    case MenuEntry::LoadFile:
      return "&Load File";
    case MenuEntry::SaveAs:
      return "&Save As...";
    case MenuEntry::Exit:
      return "&Exit";
    case MenuEntry::Device:
      return "&Device";
    case MenuEntry::UpdateFirmware:
      return "&Update F/W";
    case MenuEntry::SerialNumberProgram:
      return "Serial Number Program";
    case MenuEntry::CheckNewVersion:
      return "Check new version";
    case MenuEntry::CompareFile:
      return "Compare File";
    case MenuEntry::SetProtect:
      return "Set Protect";
    case MenuEntry::ReadChipInfo:
      return "Read Chip Info";
    case MenuEntry::About:
      break;
  }
  return "&About";
}

}  // namespace pyxis
