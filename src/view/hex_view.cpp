#include "view/hex_view.h"

#include <algorithm>

#include "platform/machine.h"
#include "platform/profile.h"

namespace pyxis {

namespace {

CMiniHexEditView theHexView;

// Where the profile keeps the line length. The last number is the control number of the view's parent, the main window.
constexpr char kProfileSection[] = "Application state\\Dockbar\\-SCBar-0";
constexpr char kProfileValue[] = "m_lpr";

constexpr int kLongestLine = 4096;  // bytes; wider than any screen

}  // namespace

CMiniHexEditView& TheHexView() { return theHexView; }

void ResetHexView() { theHexView = CMiniHexEditView{}; }

void ConfigureHexView() { theHexView.SetOptions(true, true, true, true, 2); }

void CMiniHexEditView::SetOptions(bool showAddress, bool showHex, bool showAscii, bool wideAddress, int digitsPerByte) {
  geometry.ShowAddress = showAddress;
  geometry.ShowHex = showHex;
  geometry.ShowAscii = showAscii;
  geometry.WideAddress = wideAddress;
  geometry.DigitsPerByte = digitsPerByte;
  geometry.Recalc = true;
}

std::span<std::uint8_t> CMiniHexEditView::SetSize(std::size_t size) {
  editing.Data.assign(size, 0);
  Blanked = false;
  geometry.m_lpr = static_cast<std::uint32_t>(std::clamp(
      TheMachine().profile->GetProfileInt(kProfileSection, kProfileValue, geometry.LineBytes()), 1, kLongestLine));
  geometry.Recalc = true;
  KeepInside();
  return editing.Data;
}

// After the data became shorter.
void CMiniHexEditView::KeepInside() {
  if (caret.CurrentOffset >= DataLength()) {
    caret.CurrentOffset = 0;
    caret.Nibble = geometry.DigitsPerByte;
  }
  if (geometry.TopOffset >= DataLength()) geometry.TopOffset = 0;
  if (selection.SelStart > DataLength() || selection.SelEnd > DataLength()) selection.Clear();
}

void CMiniHexEditView::Measure(int charWidth, int lineHeight) {
  if (geometry.LineHeight == 0) geometry.LineHeight = lineHeight;
  if (geometry.CharWidth != charWidth) geometry.Recalc = true;
  geometry.CharWidth = charWidth;
}

void CMiniHexEditView::OnSize(int width, int height, bool seen) {
  geometry.ClientWidth = width;
  geometry.ClientHeight = height;
  if (seen && geometry.CharWidth > 0) {
    geometry.FitLine();
    TheMachine().profile->WriteProfileInt(kProfileSection, kProfileValue, geometry.LineBytes());
  }
  caret.Place(geometry);
  Changed();
}

bool CMiniHexEditView::PreparePaint() {
  if (!Live()) return false;
  if (geometry.Prepare(DataLength())) caret.Place(geometry);
  return true;
}

void CMiniHexEditView::Scroll(HexScroll code, int position) {
  if (!Live()) return;
  std::int32_t& top = geometry.TopOffset;
  const std::int32_t old = top;
  const std::int32_t line = geometry.LineBytes();
  const std::int32_t page = line * geometry.LinesPerPage;
  switch (code) {
    case HexScroll::LineUp:
      top = std::max(top - line, 0);
      break;
    case HexScroll::LineDown:
      if (top < LastPage()) top += line;
      break;
    case HexScroll::PageUp:
      top = std::max(top - page, 0);
      break;
    case HexScroll::PageDown:
      if (top < LastPage()) top = std::min(top + page, LastPage());
      break;
    case HexScroll::ThumbTrack:
      top = std::clamp(position, 0, (DataLength() - 1) / line) * line;
      break;
  }
  if (!caret.KeyScroll) caret.CurrentOffset = std::clamp(caret.CurrentOffset + top - old, 0, DataLength() - 1);
  caret.Place(geometry);
  Changed();
}

void CMiniHexEditView::OnMouseWheel(int delta) {
  if (!Live()) return;
  std::int32_t& top = geometry.TopOffset;
  const int lines = delta / kWheelUnit;
  const std::int32_t target = std::max(top - lines * geometry.LineBytes(), 0);
  // Forward it stops at the last page; a view that stands behind it stays.
  top = lines < 0 ? std::max(top, std::min(target, LastPage())) : target;
  caret.Place(geometry);
  Changed();
}

void CMiniHexEditView::GoTo(std::uint32_t address) {
  if (!Live()) return;
  const auto length = static_cast<std::uint32_t>(DataLength());
  geometry.TopOffset = address > length ? std::max(LastPage(), 0) : static_cast<std::int32_t>(address);
  caret.Place(geometry);
  Changed();
}

}  // namespace pyxis
