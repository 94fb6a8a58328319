#include "view/show_file.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"
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

}  // namespace pyxis
