// The hex view's mouse and keys.
#include <algorithm>
#include <optional>

#include "platform/hex_digits.h"
#include "view/hex_view.h"

namespace pyxis {

namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kTab = 9;
constexpr char32_t kControlC = 3;
constexpr char32_t kControlV = 22;
constexpr char32_t kControlX = 24;
constexpr char32_t kLargestByte = 0xFF;

std::optional<unsigned> HexDigitOf(char32_t character) {
  const int value = character < 0x80 ? HexDigitValue(static_cast<char>(character)) : -1;
  return value < 0 ? std::nullopt : std::optional(static_cast<unsigned>(value));
}

}  // namespace

void CMiniHexEditView::OnLButtonDown(int x, int y, bool shift) {
  dragging_ = false;
  if (!Live()) return;
  if (shift) {
    SelStart = CurrentOffset;
    if (HitTest(x, y)) ExtendSelection(CurrentArea == kHexArea);
    if (SelEnd < 0) SelStart = -1;  // nothing was hit and nothing was selected before
  } else {
    ClearSelection();
    HitTest(x, y);
  }
  Changed();
}

void CMiniHexEditView::OnDragStart() {
  if (!Live()) return;
  SelStart = SelEnd = CurrentOffset;
  dragging_ = true;
  Changed();
}

void CMiniHexEditView::OnMouseMove(int x, int y) {
  if (!Live() || !HasSelection()) return;
  if (y < 0) {
    Scroll(HexScroll::LineUp);
    y = 0;
  } else if (y >= clientHeight_) {
    Scroll(HexScroll::LineDown);
    y = clientHeight_ - 1;
  }
  const std::int32_t before = SelEnd;
  if (HitTest(x, y)) ExtendSelection(CurrentArea == kHexArea);
  if (SelEnd != before) Changed();
}

void CMiniHexEditView::OnKeyDown(HexKey key, HexModifiers modifiers) {
  if (!Live()) return;
  if (!modifiers.shift) {
    ClearSelection();
  } else if (!HasSelection()) {
    SelStart = CurrentOffset;
  }
  MoveByKey(key, modifiers.control);
  if (modifiers.shift) ExtendSelection(CurrentArea == kHexArea && (key == HexKey::Right || key == HexKey::Down));
  Changed();
}

void CMiniHexEditView::MoveByKey(HexKey key, bool control) {
  switch (key) {
    case HexKey::PageUp:
    case HexKey::PageDown:
      ScrollForKey(key == HexKey::PageUp ? HexScroll::PageUp : HexScroll::PageDown);
      MoveCaret(0, 0);
      break;
    case HexKey::Home:
      if (control) {
        TopOffset = CurrentOffset = 0;
      } else {
        CurrentOffset -= CurrentOffset % LineBytes();
        Nibble = DigitsPerByte;
      }
      break;
    case HexKey::End:
      if (control) {
        CurrentOffset = DataLength() - 1;
        TopOffset = LastLinePartial ? 0 : std::max(LastPage(), 0);
      } else {
        CurrentOffset = std::min(CurrentOffset - CurrentOffset % LineBytes() + LineBytes(), DataLength()) - 1;
        Nibble = DigitsPerByte;
      }
      break;
    case HexKey::Left:
      MoveCaret(-1, 0);
      break;
    case HexKey::Right:
      MoveCaret(1, 0);
      break;
    case HexKey::Up:
      MoveCaret(0, -1);
      break;
    case HexKey::Down:
      MoveCaret(0, 1);
      break;
  }
  PlaceCaret();
}

void CMiniHexEditView::OnChar(char32_t character, HexModifiers modifiers) {
  if (!Live() || character == kTab || character == kBackspace) return;
  if (modifiers.control && (character == kControlX || character == kControlC || character == kControlV)) {
    if (character == kControlX && HasSelection()) CutSelection();
    return;
  }
  ClearSelection();
  if (CurrentArea == kHexArea) {
    TypeHexDigit(character);
  } else if (CurrentArea == kAsciiArea && character <= kLargestByte) {
    Data[static_cast<std::size_t>(CurrentOffset)] = static_cast<std::uint8_t>(character);
    MoveCaret(1, 0);
  }
  Changed();
}

void CMiniHexEditView::TypeHexDigit(char32_t character) {
  const auto digit = HexDigitOf(character);
  if (!digit) return;
  const int shift = 4 * (Nibble - 1);
  std::uint8_t& byte = Data[static_cast<std::size_t>(CurrentOffset)];
  byte = static_cast<std::uint8_t>((byte & ~(0xFU << shift)) | *digit << shift);
  MoveCaret(1, 0);
}

void CMiniHexEditView::CutSelection() {
  const auto [from, to] = std::minmax(SelStart, SelEnd);
  Data.erase(Data.begin() + from, Data.begin() + std::min(to, DataLength()));
  ClearSelection();
  Recalc = true;
  if (CurrentOffset >= DataLength()) CurrentOffset = std::max(DataLength() - 1, 0);
  KeepInside();
  PlaceCaret();
  Changed();
}

}  // namespace pyxis
