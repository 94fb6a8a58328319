// Compare File: a program file against the writer's data area.
#pragma once

#include <functional>
#include <string>

namespace pyxis {

class CDownloadInfoDlg {
 public:
  CDownloadInfoDlg(std::string first, std::string second);
  void OnCompareFile();
  // The comparison of a chosen file, without the file dialog: sets the third line.
  void CompareChosen(const std::string& path);

  std::string first, second, third;
  bool compareEnabled = true;
  bool cancelEnabled = true;
  std::function<void()> Changed = [] {};
};

// The file equals the writer's data area, over the length that WriterInfoBlock tells.
bool CompareWithWriter(const std::string& path);

// The menu command.
void OnCompareFileMenu();

}  // namespace pyxis
