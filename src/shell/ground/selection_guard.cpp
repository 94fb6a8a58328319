#include "shell/ground/selection_guard.h"

#include "platform/machine.h"
#include "platform/operator.h"
#include "shell/ground/messages.h"

namespace pyxis {

bool SelectionGuard::SameChip() const {
  const AppState& app = TheAppState();
  return app.selection.SelectedChip == before_.SelectedChip &&
         (model_ == Model::None || app.writer.WriterModel == model_);
}

bool SelectionGuard::SameJob() const {
  Selection now = TheAppState().selection;
  now.OptionValue = before_.OptionValue;  // the operation's own
  return SameChip() && now == before_;
}

Outcome RefuseOtherChip() {
  TheMachine().op->Tell(kOtherChip, kMessageCaption, MessageIcon::Warning);
  return Refused(Reason::OtherChip);
}

}  // namespace pyxis
