// The clipboard of the window system.
#pragma once

#include "platform/clipboard.h"

namespace pyxis::ui {

class QtClipboard : public Clipboard {
 public:
  bool Read(std::optional<std::string>& text) override;
  bool Write(const std::string& text) override;
};

}  // namespace pyxis::ui
