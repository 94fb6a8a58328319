// Where the ICs' jobs keep the protection.
#pragma once

#include "catalogue/ic.h"
#include "intake/package_files.h"

namespace pyxis {

// In the configuration word, with nothing on the panel.
constexpr Protection InConfigWord(int wordBit, ProtectedBy by) {
  return {.panel = PanelKind::None,
          .byte = Field::ConfigWord.offset,
          .bit = wordBit - 8,
          .protectedBy = by,
          .inConfigWord = true,
          .fromFile = false,
          .fromBlock = false};
}
inline constexpr Protection kFlashProtection = InConfigWord(15, ProtectedBy::SetBit);
inline constexpr Protection kOneTimeProtection = InConfigWord(13, ProtectedBy::SetBit);
inline constexpr Protection kMultiTimeProtection = InConfigWord(13, ProtectedBy::ClearedBit);

// Chosen in Option Select 1: bit 0 of a byte of ConfigWord.
constexpr Protection Chosen(PanelKind panel, std::size_t byte) {
  return {.panel = panel,
          .byte = byte,
          .bit = 0,
          .protectedBy = ProtectedBy::ClearedBit,
          .inConfigWord = false,
          .fromFile = false,
          .fromBlock = true};
}
inline constexpr Protection kHighByteProtection = Chosen(PanelKind::ProtectionOnly, Field::ConfigWord.offset);
inline constexpr Protection kLowByteProtection = Chosen(PanelKind::ProtectionOnly, Field::ConfigWord.offset + 1);
inline constexpr Protection kFullPanelProtection = Chosen(PanelKind::Full, Field::ConfigWord.offset);

// The protect byte of an .epm file: bit 0 of the first byte of ProtectFlags.
constexpr Protection OfEpmFile(ProtectedBy by, bool fromBlock) {
  return {.panel = PanelKind::ProtectionOnly,
          .byte = Field::ProtectFlags.offset,
          .bit = 0,
          .protectedBy = by,
          .inConfigWord = false,
          .fromFile = true,
          .fromBlock = fromBlock};
}
inline constexpr Protection kEpmProtection = OfEpmFile(ProtectedBy::SetBit, true);
inline constexpr Protection kEpmProtectionOfFileAlone = OfEpmFile(ProtectedBy::SetBit, false);
inline constexpr Protection kEpmProtectionByClear = OfEpmFile(ProtectedBy::ClearedBit, true);

}  // namespace pyxis
