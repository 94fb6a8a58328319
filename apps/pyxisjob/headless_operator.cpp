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

namespace {

template <typename Dialog>
DialogEnd Answer(const std::function<DialogEnd(Dialog&)>& answer, Dialog& dialog) {
  return answer ? answer(dialog) : DialogEnd::Cancel;
}

}  // namespace

DialogEnd HeadlessOperator::RunDialog(COptionSelectDlg& dialog) { return Answer(optionSelect, dialog); }
DialogEnd HeadlessOperator::RunDialog(CDownloadInfoDlg& dialog) { return Answer(downloadInfo, dialog); }
DialogEnd HeadlessOperator::RunDialog(CReadChipInfoDlg& dialog) { return Answer(chipInfo, dialog); }
DialogEnd HeadlessOperator::RunDialog(CIcSelectDlg& dialog) { return Answer(icSelect, dialog); }
DialogEnd HeadlessOperator::RunDialog(CSnSetDlg& dialog) { return Answer(snSet, dialog); }
DialogEnd HeadlessOperator::RunDialog(CSnProgramDlg& dialog) { return Answer(snProgram, dialog); }

}  // namespace pyxis::job
