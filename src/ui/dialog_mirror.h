// While it lives, a window hears of its dialog's changes. It goes before the window's other parts.
#pragma once

#include <functional>
#include <utility>

namespace pyxis::ui {

template <typename Dialog>
class DialogMirror {
 public:
  explicit DialogMirror(Dialog& dialog) : dialog_(dialog) {}
  ~DialogMirror() {
    dialog_.Changed = [] {};
  }
  DialogMirror(const DialogMirror&) = delete;
  DialogMirror& operator=(const DialogMirror&) = delete;

  // Shows the dialog as it stands, and again at each change.
  void Show(std::function<void()> sync) {
    dialog_.Changed = std::move(sync);
    dialog_.Changed();
  }

 private:
  Dialog& dialog_;
};

}  // namespace pyxis::ui
