// What an operator types into Serial Number Set.
#pragma once

#include <string>

#include "serial/sn_set.h"

namespace pyxis::test {

struct SerialEntry {
  std::string length, address, start, amount;  // hexadecimal, as typed
  int direction = 0;
};

// Opens the dialog, fills it and presses Load; true when that closed it.
inline bool EnterSerial(CSnSetDlg& dialog, const SerialEntry& entry) {
  dialog.OnInitDialog();
  dialog.OnLengthChange(entry.length);
  dialog.OnAddressChange(entry.address);
  dialog.OnStartChange(entry.start);
  dialog.OnAmountChange(entry.amount);
  dialog.OnDirection(entry.direction);
  dialog.OnLoad();
  return dialog.ended;
}

}  // namespace pyxis::test
