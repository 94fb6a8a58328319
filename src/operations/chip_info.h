// Read Chip Info: what the chip in the socket says of itself.
#pragma once

#include <array>
#include <functional>
#include <string>

namespace pyxis {

class CReadChipInfoDlg {
 public:
  explicit CReadChipInfoDlg(bool supported);
  void OnInitDialog();
  void OnRead();

  std::array<std::string, 4> lines;  // name, configuration, checksum, ID
  bool readEnabled = true;
  bool cancelEnabled = true;
  std::function<void()> Changed = [] {};  // called after each change that a window should show

 private:
  bool supported_;
};

// The menu command.
void OnReadChipInfo();

}  // namespace pyxis
