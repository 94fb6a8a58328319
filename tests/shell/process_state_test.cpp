#include "shell/process_state.h"

#include "link/writer_link.h"
#include "options/smart_option.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "support/bench.h"
#include "view/hex_view.h"

namespace pyxis::test {
namespace {

TEST(ProcessState, NothingIsLeft) {
  TheAppState().selection.SelectedChip = "QV8348";
  TheMainControls().title = "PyxisLoad  QV8348";
  TheWriterLink().DevicePath = "dev";
  TheHexView().editing.Data = {1};
  TheSnRecord().SnLength = 4;
  OptionChoices()[2] = 3;
  AllocateSmartOptionBuffer();
  SnProgressDlg() = std::make_unique<CSnProgramDlg>(false);
  ResetProcessState();
  EXPECT_EQ(All(TheAppState().selection.SelectedChip, TheMainControls().title, TheWriterLink().DevicePath),
            All("", "PyxisLoad", ""));
  EXPECT_EQ(All(TheHexView().editing.Data.size(), TheSnRecord().SnLength, OptionChoices()[2]), All(0U, 16, 0));
  EXPECT_EQ(All(TheSmartOptionBuffer() == nullptr, SnProgressDlg() == nullptr), All(true, true));
}

}  // namespace
}  // namespace pyxis::test
