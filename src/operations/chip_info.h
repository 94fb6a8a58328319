// Read Chip Info: what the chip in the socket says about itself.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "shell/ground/outcome.h"
#include "shell/ground/writer_watch.h"

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
  // Another writer's job that comes meanwhile takes the lines away and "Read" with them.
  // Refused: NotSupported; good with VerdictFailed: the verdict was a failure, or none came. The other transfers aren't
  // looked at.
  Outcome OnRead();

 private:
  void Show();
  void OnWriterArrived();
  bool supported_;
  std::string job_;  // of the opening: its menu rules have let the dialog in
  WriterWatch watch_{[this] { OnWriterArrived(); }};
};

// The menu command.
void OnReadChipInfo();

}  // namespace pyxis
