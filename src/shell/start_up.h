// What start-up learns of the writer, without a window.
#pragma once

namespace pyxis {

// The model register, and the byte of the block emptied, so that the next block read tells anew.
void PeekModelRegister();

// Identity, model and firmware of the attached writer, and its information block. Both witnesses of the model, the
// register and the block's byte, must agree.
void IdentifyAtStart();

// The model anew at IC selection: here either witness is enough. Reads the block as well.
void SettleModelAtSelection();

}  // namespace pyxis
