#include "ui/handler_gate.h"

#include <QCoreApplication>

namespace pyxis::ui {

void HandlerGate::Run(const std::function<void()>& handler) {
  if (busy_) return;
  busy_ = true;
  Starting();
  handler();
  QCoreApplication::processEvents();
  busy_ = false;
  Idle();
}

}  // namespace pyxis::ui
