// One operation at a time, of all windows together. While one runs, or its message box is open, the operator starts no
// other and device events wait; what was typed and clicked meanwhile is dropped when it ends. A dialog that merely lies
// open is no operation: its buttons start some, and devices come and go under it.
#pragma once

#include <functional>

#include "ui/input_filter.h"

namespace pyxis::ui {

class HandlerGate {
 public:
  HandlerGate();
  HandlerGate(const HandlerGate&) = delete;
  HandlerGate& operator=(const HandlerGate&) = delete;

  bool Busy() const { return busy_; }
  bool DialogOpen() const { return open_ > 0; }
  // Runs the handler to its end as an operation; does nothing when one is running already.
  void Run(const std::function<void()>& handler);
  // Called before and after an operation that no dialog runs, and whenever device events may come through again.
  std::function<void()> Starting = [] {};
  std::function<void()> Ended = [] {};
  std::function<void()> Idle = [] {};

  // While one lives, a dialog waits for the operator: the operation that has opened it is none meanwhile.
  class Open {
   public:
    explicit Open(HandlerGate& gate);
    ~Open();
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;

   private:
    HandlerGate& gate_;
    bool wasBusy_;
  };

  InputFilter& Input() { return input_; }

 private:
  InputFilter input_;
  bool busy_ = false;
  int open_ = 0;
};

}  // namespace pyxis::ui
