// The fuse panel: three pairs of boxes that show the protection, mode and clock choices of a job. Display only.
#pragma once

namespace pyxis {

// Shows the pairs of the selected IC's panel kind, hides the others, unmarks what it shows.
void ResetFusePanel();
// For each pair: -1 hides it, 0 marks the second box, 1 the first.
void SetFusePanel(int protection, int mode, int clock);
// All six boxes hidden, as at start-up.
void HideFusePanel();

}  // namespace pyxis
