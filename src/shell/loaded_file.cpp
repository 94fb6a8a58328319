#include "shell/loaded_file.h"

#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"
#include "view/show_file.h"

namespace pyxis {

void BlankLoadedFile() {
  TheAppState().conversion.LoadedFilePath.clear();
  ShowFile("");
}

void ForgetLoadedFile() {
  SetControlText(ControlId::FileField, "");
  BlankLoadedFile();
}

}  // namespace pyxis
