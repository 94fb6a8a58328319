// The system's clipboard, text only.
#pragma once

#include <optional>
#include <string>

namespace pyxis {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // False when the clipboard can't be opened. `text` is nothing when it holds no text.
  virtual bool Read(std::optional<std::string>& text) = 0;
  virtual bool Write(const std::string& text) = 0;
};

}  // namespace pyxis
