#include "operations/transfer_steps.h"

#include "link/transport.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

namespace {
constexpr int kRange = 100;
}

TransferSteps::TransferSteps() : shows_(!ActiveTransport().DrivesProgress()) {
  if (shows_) SetProgressRange(0, kRange);
}

void TransferSteps::Show(int position) const {
  if (!shows_) return;
  SetProgressPosition(position);
  PumpPaint();
}

}  // namespace pyxis
