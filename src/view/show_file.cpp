#include "view/show_file.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "view/hex_view.h"

namespace pyxis {

void ShowFile(const std::string& path) {
  CMiniHexEditView& view = TheHexView();
  if (path.empty()) {
    view.Blanked = true;
  } else {
    const auto bytes = ReadWholeFile(path);
    if (!bytes) return;
    std::copy(bytes->begin(), bytes->end(), view.SetSize(bytes->size()).begin());
  }
  TheMachine().view->HexViewChanged();
}

void BlankLoadedFile() {
  TheAppState().conversion.LoadedFilePath.clear();
  ShowFile("");
}

void ForgetLoadedFile() {
  SetControlText(ControlId::FileField, "");
  BlankLoadedFile();
}

}  // namespace pyxis
