// The ICs that have something to show on the fuse panel.
#pragma once

#include <array>
#include <cstdint>

#include "options/fuse_panel.h"

namespace pyxis {

// How an OK in Option Select 1 changes OptionValue before a conversion.
enum class OptionEffect { None, AllBits, UnprotectBit, UnprotectAlone };

struct FuseIc {
  std::uint32_t ChipCode;
  const char* name;
  PanelKind panel;
  OptionEffect effect;
  bool protectionFromFile;
};

// clang-format off
inline constexpr std::array<FuseIc, 16> kFuseIcs{{
    {0x1622,  "QVL04",  PanelKind::Full,           OptionEffect::AllBits,        false},
    {0x1630,  "QVL05",  PanelKind::Full,           OptionEffect::AllBits,        false},
    {0x1636,  "QVL06",  PanelKind::Full,           OptionEffect::AllBits,        false},
    {0x1632,  "QVL13",  PanelKind::ProtectionOnly, OptionEffect::UnprotectBit,   false},
    {0x1638,  "QVL07",  PanelKind::ProtectionOnly, OptionEffect::UnprotectBit,   false},
    {0x1395,  "QV4105", PanelKind::ProtectionOnly, OptionEffect::UnprotectAlone, false},
    {0x1396,  "QV4106", PanelKind::ProtectionOnly, OptionEffect::UnprotectAlone, false},
    {0x1397,  "QV4103", PanelKind::ProtectionOnly, OptionEffect::None,           false},
    {0x1382,  "QV4101", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x1385,  "QV4107", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x1387,  "QV4201", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x1388,  "QV4203", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x1392,  "QV4204", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x1384,  "QV4205", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x1393,  "QV4206", PanelKind::ProtectionOnly, OptionEffect::None,           true},
    {0x13931, "QV4207", PanelKind::ProtectionOnly, OptionEffect::None,           true},
}};
// clang-format on

// Null for an IC with an empty panel.
constexpr const FuseIc* FuseIcOf(std::uint32_t chipCode) {
  for (const FuseIc& ic : kFuseIcs)
    if (ic.ChipCode == chipCode) return &ic;
  return nullptr;
}

}  // namespace pyxis
