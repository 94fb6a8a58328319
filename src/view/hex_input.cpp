// The hex view's mouse, keys and editing.
#include <algorithm>

#include "view/hex_view.h"

namespace pyxis {

namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kTab = 9;
constexpr char32_t kControlC = 3;
constexpr char32_t kControlV = 22;
constexpr char32_t kControlX = 24;

}  // namespace

// A point on data that isn't there means the last byte.
bool CMiniHexEditView::HitTest(int x, int y) {
  const auto hit = geometry.HitTest(x, y, DataLength());
  if (!hit) return false;
  caret.Take(*hit, geometry);
  if (caret.CurrentOffset < 0 || caret.CurrentOffset >= DataLength()) {
    caret.CurrentOffset = std::clamp(caret.CurrentOffset, 0, DataLength() - 1);
    caret.Place(geometry);
  }
  return true;
}

void CMiniHexEditView::OnLButtonDown(int x, int y, bool shift) {
  if (!Live()) return;
  if (shift) {
    selection.SelStart = caret.CurrentOffset;
    if (HitTest(x, y)) ExtendSelection(caret.CurrentArea == kHexArea);
    if (selection.SelEnd < 0) selection.SelStart = -1;  // nothing was hit and nothing was selected before
  } else {
    selection.Clear();
    HitTest(x, y);
  }
  Changed();
}

void CMiniHexEditView::OnDragStart() {
  if (!Live()) return;
  selection.SelStart = selection.SelEnd = caret.CurrentOffset;
  Changed();
}

void CMiniHexEditView::OnMouseMove(int x, int y) {
  if (!Live() || !selection.Exists()) return;
  if (y < 0) {
    Scroll(HexScroll::LineUp);
    y = 0;
  } else if (y >= geometry.ClientHeight) {
    Scroll(HexScroll::LineDown);
    y = geometry.ClientHeight - 1;
  }
  const std::int32_t before = selection.SelEnd;
  if (HitTest(x, y)) ExtendSelection(caret.CurrentArea == kHexArea);
  if (selection.SelEnd != before) Changed();
}

void CMiniHexEditView::OnKeyDown(HexKey key, HexModifiers modifiers) {
  if (!Live()) return;
  if (!modifiers.shift) {
    selection.Clear();
  } else if (!selection.Exists()) {
    selection.SelStart = caret.CurrentOffset;
  }
  MoveByKey(key, modifiers.control);
  if (modifiers.shift) ExtendSelection(caret.CurrentArea == kHexArea && (key == HexKey::Right || key == HexKey::Down));
  Changed();
}

void CMiniHexEditView::ScrollForKey(HexScroll code) {
  caret.KeyScroll = true;
  Scroll(code);
  caret.KeyScroll = false;
}

void CMiniHexEditView::MoveCaret(int dx, int dy) {
  if (caret.CurrentArea == kAddressArea) return;
  caret.Move(dx, dy, geometry, DataLength());
  if (caret.CurrentOffset < geometry.TopOffset) {
    ScrollForKey(HexScroll::LineUp);
  } else if (caret.CurrentOffset >= geometry.TopOffset + geometry.LinesPerPage * geometry.LineBytes()) {
    ScrollForKey(HexScroll::LineDown);
  }
  caret.Place(geometry);
}

void CMiniHexEditView::MoveByKey(HexKey key, bool control) {
  std::int32_t& at = caret.CurrentOffset;
  const std::int32_t lineStart = at - at % geometry.LineBytes();
  switch (key) {
    case HexKey::PageUp:
    case HexKey::PageDown:
      ScrollForKey(key == HexKey::PageUp ? HexScroll::PageUp : HexScroll::PageDown);
      MoveCaret(0, 0);
      break;
    case HexKey::Home:
      if (control) {
        geometry.TopOffset = at = 0;
      } else {
        at = lineStart;
        caret.Nibble = geometry.DigitsPerByte;
      }
      break;
    case HexKey::End:
      if (control) {
        at = DataLength() - 1;
        geometry.TopOffset = geometry.LastLinePartial ? 0 : std::max(LastPage(), 0);
      } else {
        at = std::min(lineStart + geometry.LineBytes(), DataLength()) - 1;
        caret.Nibble = geometry.DigitsPerByte;
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
  caret.Place(geometry);
}

void CMiniHexEditView::ClearSelection() {
  if (!selection.Exists()) return;
  selection.Clear();
  Changed();
}

void CMiniHexEditView::OnChar(char32_t character, HexModifiers modifiers) {
  if (!Live() || character == kTab || character == kBackspace) return;
  if (modifiers.control && (character == kControlX || character == kControlC || character == kControlV)) {
    if (character == kControlX && selection.Exists()) CutSelection();
    return;
  }
  selection.Clear();
  const bool typed = caret.CurrentArea == kHexArea     ? editing.TypeDigit(caret.CurrentOffset, caret.Nibble, character)
                     : caret.CurrentArea == kAsciiArea ? editing.TypeCharacter(caret.CurrentOffset, character)
                                                       : false;
  if (typed) MoveCaret(1, 0);
  Changed();
}

void CMiniHexEditView::CutSelection() {
  const auto [from, to] = selection.Range();
  editing.Cut(from, to);
  selection.Clear();
  geometry.Recalc = true;
  if (caret.CurrentOffset >= DataLength()) caret.CurrentOffset = std::max(DataLength() - 1, 0);
  KeepInside();
  caret.Place(geometry);
  Changed();
}

}  // namespace pyxis
