#include <cstdio>

#include "job.h"

namespace pyxis::job {

void HeadlessOperator::Tell(const std::string& text, const std::string&, MessageIcon) {
  messages.push_back(text);
  if (!quiet) std::fprintf(stderr, "%s%s", text.c_str(), text.ends_with('\n') ? "" : "\n");
}

bool HeadlessOperator::Ask(const std::string& text, const std::string& caption, MessageIcon icon) {
  Tell(text, caption, icon);
  return answer;
}

DialogEnd HeadlessOperator::RunDialog(COptionSelectDlg& dialog) {
  return optionSelect ? optionSelect(dialog) : DialogEnd::Cancel;
}

DialogEnd HeadlessOperator::RunDialog(CDownloadInfoDlg& dialog) {
  return downloadInfo ? downloadInfo(dialog) : DialogEnd::Cancel;
}

DialogEnd HeadlessOperator::RunDialog(CReadChipInfoDlg& dialog) {
  return chipInfo ? chipInfo(dialog) : DialogEnd::Cancel;
}

}  // namespace pyxis::job
