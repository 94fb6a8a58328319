// The converter families. Each has one routine and one table of rows keyed by ChipCode (the *_table.h beside it).
#pragma once

#include <cstddef>
#include <cstdint>

#include "intake/convert.h"

namespace pyxis {

// Converts when the family knows request.ChipCode: true, and the converter's code. False when it doesn't.
bool ConvertOtp4(const ConvertRequest& request, int& code);
bool ConvertEpm4(const ConvertRequest& request, int& code);
bool ConvertHex14Otp(const ConvertRequest& request, int& code);
bool ConvertHex14Mtp(const ConvertRequest& request, int& code);
bool ConvertVelmarFlash(const ConvertRequest& request, int& code);
bool ConvertVelmarEeprom(const ConvertRequest& request, int& code);
bool ConvertVelmarBlock(const ConvertRequest& request, int& code);
bool ConvertUsbHex(const ConvertRequest& request, int& code);
bool ConvertUsbObj(const ConvertRequest& request, int& code);
bool ConvertUsbEeprom(const ConvertRequest& request, int& code);

// The row with this ChipCode in a family's table, or null.
template <typename Table>
const typename Table::value_type* FindRow(const Table& table, std::uint32_t chipCode) {
  for (const auto& row : table)
    if (row.ChipCode == chipCode) return &row;
  return nullptr;
}

// Every ChipCode stands in its table once.
template <typename Table>
constexpr bool KeysAreUnique(const Table& table) {
  for (std::size_t i = 0; i < table.size(); ++i)
    for (std::size_t k = i + 1; k < table.size(); ++k)
      if (table[i].ChipCode == table[k].ChipCode) return false;
  return true;
}

}  // namespace pyxis
