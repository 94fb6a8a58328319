// The fuse panel: three pairs of boxes that show the protection, mode and clock choices of a job. Display only.
#pragma once

#include <optional>

#include "catalogue/ic.h"

namespace pyxis {

// Shows the pairs of the selected IC's panel kind, hides the others, unmarks what it shows.
void ResetFusePanel();
// Marks the pairs of a panel's kind, hides the others.
void ShowOnPanel(PanelKind kind, bool protection, bool mode, bool clock);
// For each pair: true marks the first box, false the second; a pair without a value is hidden.
void SetFusePanel(std::optional<bool> protection, std::optional<bool> mode = {}, std::optional<bool> clock = {});
// All six boxes hidden, as at start-up.
void HideFusePanel();

}  // namespace pyxis
