// Read: the chip's contents into readdata.txt and the hex view.
#pragma once

namespace pyxis {

void OnRead();
bool ReadChip();

}  // namespace pyxis
