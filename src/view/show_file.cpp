#include "view/show_file.h"

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/main_view.h"

namespace pyxis {

namespace {
ShownFile theShownFile;
}

ShownFile& TheShownFile() { return theShownFile; }

void ShowFile(const std::string& path) {
  if (path.empty()) {
    theShownFile.blanked = true;
  } else {
    auto bytes = ReadWholeFile(path);
    if (!bytes) return;
    theShownFile = {std::move(*bytes), false};
  }
  TheMachine().view->HexViewChanged();
}

}  // namespace pyxis
