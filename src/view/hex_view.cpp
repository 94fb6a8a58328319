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

constexpr int kWheelUnit = 60;  // of a wheel's delta, one line

}  // namespace

CMiniHexEditView& TheHexView() { return theHexView; }

void ResetHexView() { theHexView = CMiniHexEditView{}; }

void ConfigureHexView() { theHexView.SetOptions(true, true, true, true, 2); }

void CMiniHexEditView::SetOptions(bool showAddress, bool showHex, bool showAscii, bool wideAddress, int digitsPerByte) {
  ShowAddress = showAddress;
  ShowHex = showHex;
  ShowAscii = showAscii;
  WideAddress = wideAddress;
  DigitsPerByte = digitsPerByte;
  Recalc = true;
}

std::span<std::uint8_t> CMiniHexEditView::SetSize(std::size_t size) {
  Data.assign(size, 0);
  Blanked = false;
  m_lpr = static_cast<std::uint32_t>(
      std::clamp(TheMachine().profile->GetProfileInt(kProfileSection, kProfileValue, LineBytes()), 1, kLongestLine));
  Recalc = true;
  KeepInside();
  return Data;
}

// After Data became shorter.
void CMiniHexEditView::KeepInside() {
  if (CurrentOffset >= DataLength()) {
    CurrentOffset = 0;
    Nibble = DigitsPerByte;
  }
  if (TopOffset >= DataLength()) TopOffset = 0;
  if (SelStart > DataLength() || SelEnd > DataLength()) ClearSelection();
}

void CMiniHexEditView::Measure(int charWidth, int lineHeight) {
  if (LineHeight == 0) LineHeight = lineHeight;
  if (CharWidth != charWidth) Recalc = true;
  CharWidth = charWidth;
}

void CMiniHexEditView::OnSize(int width, int height, bool visible) {
  clientWidth_ = width;
  clientHeight_ = height;
  if (visible && CharWidth > 0) {
    const int cells = DigitsPerByte + 1 + (ShowAscii ? 1 : 0);
    m_lpr = static_cast<std::uint32_t>(std::max((width / CharWidth - AddressCells()) / cells, 1));
    TheMachine().profile->WriteProfileInt(kProfileSection, kProfileValue, LineBytes());
    Recalc = true;
  }
  PlaceCaret();
  Changed();
}

bool CMiniHexEditView::PreparePaint() {
  if (!Live()) return false;
  LinesPerPage = VisibleLines();
  if (!Recalc) return true;
  HexColumnX = ShowAddress ? AddressCells() * CharWidth : 0;
  AsciiColumnX = HexColumnX + (ShowHex ? LineBytes() * (DigitsPerByte + 1) * CharWidth : 0);
  LastLinePartial = false;
  if (LinesPerPage * LineBytes() > DataLength()) {
    LinesPerPage = (DataLength() + LineBytes() / 2) / LineBytes();
    if (DataLength() % LineBytes() != 0) {
      LastLinePartial = true;
      ++LinesPerPage;
    }
  }
  Recalc = false;
  PlaceCaret();
  return true;
}

std::int32_t CMiniHexEditView::LastPage() const { return DataLength() - LinesPerPage * LineBytes(); }

HexScrollBar CMiniHexEditView::ScrollBar() const {
  if (!Live()) return {};
  HexScrollBar bar{DataLength() / LineBytes(), VisibleLines(), TopOffset / LineBytes(), false};
  bar.enabled = bar.range > bar.page;
  return bar;
}

void CMiniHexEditView::Scroll(HexScroll code, int position) {
  if (!Live()) return;
  const std::int32_t old = TopOffset;
  const std::int32_t page = LineBytes() * LinesPerPage;
  switch (code) {
    case HexScroll::LineUp:
      TopOffset = std::max(TopOffset - LineBytes(), 0);
      break;
    case HexScroll::LineDown:
      if (TopOffset < LastPage()) TopOffset += LineBytes();
      break;
    case HexScroll::PageUp:
      TopOffset = std::max(TopOffset - page, 0);
      break;
    case HexScroll::PageDown:
      if (TopOffset < LastPage()) TopOffset = std::min(TopOffset + page, LastPage());
      break;
    case HexScroll::ThumbTrack:
      TopOffset = std::clamp(position, 0, (DataLength() - 1) / LineBytes()) * LineBytes();
      break;
  }
  if (!KeyScroll) CurrentOffset = std::clamp(CurrentOffset + TopOffset - old, 0, DataLength() - 1);
  PlaceCaret();
  Changed();
}

void CMiniHexEditView::OnMouseWheel(int delta) {
  if (!Live()) return;
  const int lines = delta / kWheelUnit;
  const std::int32_t target = std::max(TopOffset - lines * LineBytes(), 0);
  // Forward it stops at the last page; a view that stands behind it stays.
  TopOffset = lines < 0 ? std::max(TopOffset, std::min(target, LastPage())) : target;
  PlaceCaret();
  Changed();
}

void CMiniHexEditView::GoTo(std::uint32_t address) {
  if (!Live()) return;
  const auto length = static_cast<std::uint32_t>(DataLength());
  TopOffset = address > length ? std::max(LastPage(), 0) : static_cast<std::int32_t>(address);
  PlaceCaret();
  Changed();
}

}  // namespace pyxis
