#include "shell/process_state.h"

#include "link/writer_link.h"
#include "options/smart_option.h"
#include "platform/machine.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "view/hex_view.h"

namespace pyxis {

void ResetProcessState() {
  ResetMachine();
  ResetAppState();
  ResetMainControls();
  ResetWriterLink();
  ResetHexView();
  ResetSmartOption();
  ResetSnRecord();
  SnProgressDlg().reset();
}

}  // namespace pyxis
