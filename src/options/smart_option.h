// Smart Option: what the bits of an IC's configuration word mean, in words. The rows come from the IC's .tin file
// (options/tin_file.h), the bits of each row from its masks in the catalogue. Display only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/ground/app_state.h"

namespace pyxis {

inline constexpr std::size_t kSmartOptionRows = kOptionSlots - 1;  // the last slot is for the end mark
inline constexpr std::size_t kSwitchValueCount = 34;

struct SmartOptionRow {
  char Label[64];             // caption, not terminated; a zero first byte ends the list
  std::uint32_t LabelLength;  // bytes used in Label
  char Items[256];            // alternatives with kItemSeparator between them, zero-terminated
  std::uint32_t ItemsLength;  // bytes used in Items, terminator included
  std::uint32_t ItemCount;
  std::int32_t SwitchAddress;  // -1: none
  std::uint32_t SwitchValues[kSwitchValueCount];
};
static_assert(sizeof(SmartOptionRow) == 472);

inline constexpr char kItemSeparator = '\x01';

using SmartOptionBuffer = std::array<SmartOptionRow, kOptionSlots>;

// The one table of rows; null outside the main window's life. It keeps its contents from one file to the next.
SmartOptionBuffer* TheSmartOptionBuffer();
void AllocateSmartOptionBuffer();  // zeroed; replaces a table that is there
void FreeSmartOptionBuffer();

// For each row the index of the alternative that it shows. Never cleared.
std::array<std::int32_t, kOptionSlots>& OptionChoices();

// As before start-up: no table, all choices 0.
void ResetSmartOption();

// The rows before the end mark; none without a table.
std::span<SmartOptionRow> CurrentRows();
std::string_view LabelOf(const SmartOptionRow& row);
// A run of separators counts as one, and none counts at either end.
std::vector<std::string> AlternativesOf(const SmartOptionRow& row);

// Takes a configuration word apart by the active IC's masks: each slot of OptionChoices gets its field with all bits
// inverted, so a field of ones is alternative 0. The word -1 is none: 0, and nothing changes. Else 1.
int UnpackSystemConfig(std::int32_t word);

}  // namespace pyxis
