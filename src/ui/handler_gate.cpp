#include "ui/handler_gate.h"

#include <QCoreApplication>

namespace pyxis::ui {

HandlerGate::HandlerGate() { QCoreApplication::instance()->installEventFilter(&input_); }

void HandlerGate::Run(const std::function<void()>& handler) {
  if (busy_) return;
  busy_ = true;
  const bool outermost = !DialogOpen();
  if (outermost) Starting();
  handler();
  input_.Discard();
  busy_ = false;
  if (outermost) Ended();
  Idle();
}

HandlerGate::Open::Open(HandlerGate& gate) : gate_(gate), wasBusy_(gate.busy_) {
  if (wasBusy_) gate_.input_.Discard();
  gate_.busy_ = false;
  ++gate_.open_;
  // What has waited comes through when the dialog's own loop runs.
  QMetaObject::invokeMethod(
      &gate_.input_,
      [&gate = gate_] {
        if (!gate.busy_) gate.Idle();
      },
      Qt::QueuedConnection);
}

HandlerGate::Open::~Open() {
  --gate_.open_;
  gate_.busy_ = wasBusy_;
}

}  // namespace pyxis::ui
