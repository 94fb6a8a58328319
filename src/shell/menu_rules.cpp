#include "shell/menu_rules.h"

#include <algorithm>
#include <string_view>

#include "intake/package_files.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

// Chips whose serial numbers, if they have any, are set up in IC selection.
constexpr std::string_view kNoSerialProgram[] = {"QV4105", "QV4106", "QV4103", "QV4206", "QV4204", "QV4203", "QV4201",
                                                 "QV8369", "QV4207", "QV4205", "QV4301", "QV4101", "QV8121", "QV8122",
                                                 "QV8120", "QV8119", "QV8103", "QV8104", "QV8123", "QV8105", "QV8115",
                                                 "QV8117", "QV8111", "QV8113", "QV8401", "QV8106", "QV8101", "QV8102",
                                                 "QV8108", "QV8116", "QV8118", "QV8112", "QV8114", "QV8107", "QV8109"};

// Chips that say nothing about themselves.
constexpr std::string_view kNoChipInfo[] = {"QV4105", "QV4106", "QV4103", "QV4206", "QV4204", "QV4203", "QV4201",
                                            "QV4207", "QV4205", "QV4107", "QV4302", "QV4101", "QV4104"};

template <typename List>
bool Holds(const List& list, std::string_view name) {
  return std::find(std::begin(list), std::end(list), name) != std::end(list);
}

bool ChipAndWriter() { return !TheAppState().selection.ChipNameText.empty() && TheAppState().writer.WriterConnected; }

bool ChipInfoAllowed() {
  const AppState& app = TheAppState();
  return !Holds(kNoChipInfo, app.selection.ChipNameText) && app.selection.MassProduction != MassMode::On &&
         app.selection.ProductionLimitOn != 1 && FieldByte(app.writer.WriterInfoBlock, Field::ProductionFlags) == 0;
}

}  // namespace

bool MenuEnabled(MenuEntry entry) {
  switch (entry) {
    case MenuEntry::LoadFile:
    case MenuEntry::CompareFile:
    case MenuEntry::SetProtect:
      return ChipAndWriter();
    case MenuEntry::SerialNumberProgram:
      return ChipAndWriter() && !Holds(kNoSerialProgram, TheAppState().selection.ChipNameText);
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

}  // namespace pyxis
