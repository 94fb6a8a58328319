// The buffer area, which lies under the hex view and comes to the front while a long text is to be read.
#pragma once

#include <string>

namespace pyxis {

// The area enabled and shown, HexView hidden; and the other way round. Both paint at once.
void FrontBufferArea();
void FrontHexView();

// ReadyText, shown in the area and painted at once. Lines end in CR LF.
void SetReadyText(const std::string& text);

}  // namespace pyxis
