// One handler of the logic at a time. An event that comes while one runs, or while its message box is open, is dropped
// when it is the operator's, and waits when it is a device's.
#pragma once

#include <functional>

namespace pyxis::ui {

class HandlerGate {
 public:
  bool Busy() const { return busy_; }
  // Runs the handler to its end; does nothing when one is running already. What the operator did meanwhile is taken out
  // of the queue then: a click that was made while one chip was under work is no click for the next one.
  void Run(const std::function<void()>& handler);
  // Called before and after each handler.
  std::function<void()> Starting = [] {};
  std::function<void()> Idle = [] {};

 private:
  bool busy_ = false;
};

}  // namespace pyxis::ui
