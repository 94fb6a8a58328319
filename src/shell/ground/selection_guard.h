// What an operation was begun for. A writer that comes while one of its dialogs lies open may bring another selection
// along.
#pragma once

#include "shell/ground/app_state.h"
#include "shell/ground/outcome.h"

namespace pyxis {

class SelectionGuard {
 public:
  // The same IC for a writer of the same model; a model that wasn't known then may be any.
  bool SameChip() const;
  // And everything that was chosen with it.
  bool SameJob() const;

 private:
  Selection before_ = TheAppState().selection;
  Model model_ = TheAppState().writer.WriterModel;
};

Outcome RefuseOtherChip();  // tells it, and gives the refusal

}  // namespace pyxis
