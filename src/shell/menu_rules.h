// Which menu entries are enabled. Evaluated each time a menu opens.
#pragma once

namespace pyxis {

enum class MenuEntry {
  LoadFile,
  SaveAs,
  Exit,
  Device,
  UpdateFirmware,
  SerialNumberProgram,
  CheckNewVersion,
  CompareFile,
  SetProtect,
  ReadChipInfo,
  About
};

bool MenuEnabled(MenuEntry entry);
// What stands in the menu.
const char* CaptionOf(MenuEntry entry);

}  // namespace pyxis
