// While it lives, a window hears of its dialog's changes. It goes before the window's other parts.
#pragma once

#include <functional>
#include <utility>

namespace pyxis::ui {

template <typename Dialog>
class DialogMirror {
 public:
  explicit DialogMirror(Dialog& dialog) : changed_(dialog.Changed) {}
  ~DialogMirror() {
    changed_ = [] {};
  }
  DialogMirror(const DialogMirror&) = delete;
  DialogMirror& operator=(const DialogMirror&) = delete;

  // Shows the dialog as it stands, and again at each change.
  void Show(std::function<void()> sync) {
    changed_ = std::move(sync);
    changed_();
  }

 private:
  std::function<void()>& changed_;
};

}  // namespace pyxis::ui
