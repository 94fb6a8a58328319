// Where the hex view's caret is, how it moves, and what a point of the window means.
#include <algorithm>

#include "view/hex_view.h"

namespace pyxis {

int CMiniHexEditView::CaretWidth() const {
  return CurrentArea == kAddressArea ? (AddressCells() - 1) * CharWidth : CharWidth;
}

void CMiniHexEditView::PlaceCaret() {
  const std::int32_t distance = CurrentOffset - TopOffset;
  const std::int32_t row = distance / LineBytes();
  const std::int32_t column = distance % LineBytes();
  CaretY = row * LineHeight;
  switch (CurrentArea) {
    case kAsciiArea:
      CaretX = AsciiColumnX + column * CharWidth;
      break;
    case kHexArea:
      if (Nibble < 1) Nibble = DigitsPerByte;
      if (Nibble > DigitsPerByte) Nibble = 1;
      CaretX = HexColumnX + column * CharWidth * (DigitsPerByte + 1) + CharWidth * (DigitsPerByte - Nibble);
      break;
    default:
      CaretX = 0;
      break;
  }
  caretInView_ = Live() && distance >= 0 && CaretX < clientWidth_ && CaretY < clientHeight_;
}

void CMiniHexEditView::ScrollForKey(HexScroll code) {
  KeyScroll = true;
  Scroll(code);
  KeyScroll = false;
}

void CMiniHexEditView::MoveCaret(int dx, int dy) {
  if (CurrentArea == kAddressArea) return;
  if (CurrentArea == kAsciiArea) {
    CurrentOffset += dx + dy * LineBytes();
  } else {
    if (dx != 0) Nibble += dx > 0 ? -1 : 1;
    CurrentOffset += dy * LineBytes();
    if (dx != 0 && Nibble > DigitsPerByte) --CurrentOffset;
    if (dx != 0 && Nibble < 1) ++CurrentOffset;
  }
  if (CurrentOffset < 0) {
    CurrentOffset = 0;
    Nibble = DigitsPerByte;
  } else if (CurrentOffset >= DataLength()) {
    CurrentOffset = DataLength() - 1;
    Nibble = 1;
  }
  if (CurrentOffset < TopOffset) {
    ScrollForKey(HexScroll::LineUp);
  } else if (CurrentOffset >= TopOffset + LinesPerPage * LineBytes()) {
    ScrollForKey(HexScroll::LineDown);
  }
  PlaceCaret();
}

// Cells count from 1. A point on data that isn't there means the last byte.
bool CMiniHexEditView::HitTest(int x, int y) {
  if (CharWidth <= 0 || LineHeight <= 0) return false;
  const int row = y / LineHeight;
  const int column = (x + CharWidth) / CharWidth;
  if (y < 0 || row > LinesPerPage || row * LineBytes() > DataLength()) return false;
  if (!HitAddress(row, column) && !HitHex(row, column) && !HitAscii(row, column)) return false;
  if (CurrentOffset < 0 || CurrentOffset >= DataLength()) {
    CurrentOffset = std::clamp(CurrentOffset, 0, DataLength() - 1);
    PlaceCaret();
  }
  return true;
}

bool CMiniHexEditView::HitAddress(int row, int column) {
  if (!ShowAddress || column > (WideAddress ? 8 : 5)) return false;
  CurrentArea = kAddressArea;
  CurrentOffset = TopOffset + row * LineBytes();
  SetCaret(0, row);
  return true;
}

bool CMiniHexEditView::HitHex(int row, int column) {
  const int first = HexColumnX / CharWidth;
  const int step = DigitsPerByte + 1;
  if (!ShowHex || column >= first + LineBytes() * step) return false;
  // The blank behind a byte belongs to the next one.
  if ((column - AddressCells()) % step != 0) --column;
  CurrentArea = kHexArea;
  CurrentOffset = TopOffset + row * LineBytes() + (column - first) / step;
  Nibble = DigitsPerByte - (column - AddressCells()) % step;
  SetCaret(column, row);
  return true;
}

bool CMiniHexEditView::HitAscii(int row, int column) {
  const int first = AsciiColumnX / CharWidth;
  if (!ShowAscii || column > first + LineBytes()) return false;
  CurrentArea = kAsciiArea;
  CurrentOffset = std::max(TopOffset + row * LineBytes() + column - first - 1, 0);
  SetCaret(column - 1 < first ? column : column - 1, row);
  return true;
}

void CMiniHexEditView::SetCaret(int column, int row) {
  CaretX = column * CharWidth;
  CaretY = row * LineHeight;
  caretInView_ = CaretX < clientWidth_ && CaretY < clientHeight_;
}

}  // namespace pyxis
