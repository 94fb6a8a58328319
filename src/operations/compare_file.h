// Compare File: which file the writer holds, and whether a file of the operator's is the same.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "shell/ground/outcome.h"
#include "shell/ground/writer_watch.h"

namespace pyxis {

struct CompareKind;

// The dialog "Download File Information".
class CDownloadInfoDlg {
 public:
  CDownloadInfoDlg(std::string chipLine, std::string timeLine)
      : lines{std::move(chipLine), std::move(timeLine), std::string()} {}

  std::array<std::string, 3> lines;  // chip, time of the conversion, result of the last comparison
  bool compareEnabled = true;
  bool cancelEnabled = true;
  std::function<void()> Changed = [] {};

  // Asks for a file, makes <stem>.bin of it as the writer's data area would hold it, and compares the two; tells the
  // operator what can't be read or made. Where no target is made, the third line stays without a result.
  // Refused: OtherChip, when another job has come under the file dialog, and OwnTarget; cancelled: NoFile; failed:
  // NotReadable, NotIntelHex, NotWritable (the target), Different.
  Outcome OnCompareFile();

 private:
  void ShowJob();
  void Enable(bool enabled);
  Outcome CompareChosen(const CompareKind& kind, const std::string& chosen);
  WriterWatch watch_{[this] { ShowJob(); }};
};

// Whether the file equals the writer's data area: ImageLength bytes or words of WriterInfoBlock, in the byte form no
// more than the file has. In the word form a file shorter than that differs. Failed: NotReadable, Different.
Outcome CompareWithWriter(const std::string& path);

// The menu command.
void OnDownloadInfo();

}  // namespace pyxis
