// Shows in the main dialog what the writer holds.
#pragma once

namespace pyxis {

// From WriterInfoBlock as it was last read. A block that names no chip of ours changes nothing.
void RefreshFromWriter();

}  // namespace pyxis
