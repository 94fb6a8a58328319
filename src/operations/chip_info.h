// Read Chip Info: what the chip in the socket says about itself.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "shell/ground/outcome.h"

namespace pyxis {

// The dialog "Read CHIP Information".
class CReadChipInfoDlg {
 public:
  explicit CReadChipInfoDlg(bool Supported) : supported_(Supported) {}

  // Chip name, configuration, checksum, ID; the last two stay empty for chips that have neither.
  std::array<std::string, 4> lines;
  bool readEnabled = true;
  bool cancelEnabled = true;
  std::function<void()> Changed = [] {};

  void OnInitDialog();
  // Runs Verify, in which the writer looks at the chip, and shows what the information block then says.
  // Refused: NotSupported. The transfers aren't looked at.
  Outcome OnRead();

 private:
  void Show();
  bool supported_;
};

// The menu command.
void OnReadChipInfo();

}  // namespace pyxis
