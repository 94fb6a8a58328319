// What the hex view shows, as text and places: only the lines that lie in the window are made.
#pragma once

#include <cstdint>
#include <string>

#include "view/hex_view.h"

namespace pyxis {

// One line. The hexadecimal text has a blank behind each byte, the ASCII text one character a byte.
struct HexLine {
  std::string address, hex, ascii;
  // The selected bytes of the line, counted from its first one; both the same when none is.
  int selectedFrom = 0, selectedTo = 0;
};

// The number of lines to draw: whole lines of the client area, up to the end of the data, of a view that is live.
int HexLineCount(const CMiniHexEditView& view);
// A line of that number. Reuses the strings' memory.
void FormatHexLine(const CMiniHexEditView& view, int line, HexLine& out);

}  // namespace pyxis
