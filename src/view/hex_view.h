// The hex view's model: a byte buffer in three columns, address, hexadecimal and ASCII. It knows bytes, lines, columns
// and pixels and nothing of windows: the window measures the font, hands events in and paints what hex_picture.h makes.
// Edits stay in the view's own copy; they reach neither a file nor the writer.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace pyxis {

enum class HexScroll { LineUp, LineDown, PageUp, PageDown, ThumbTrack };

// Which column holds the caret.
enum HexArea : int { kAddressArea = 0, kAsciiArea = 1, kHexArea = 2 };

enum class HexKey { PageUp, PageDown, Home, End, Left, Right, Up, Down };

struct HexModifiers {
  bool shift = false;
  bool control = false;
};

// The vertical scroll bar, in lines: positions 0 to range - page + 1.
struct HexScrollBar {
  int range = 0, page = 0, position = 0;
  bool enabled = false;
};

class CMiniHexEditView {
 public:
  std::vector<std::uint8_t> Data;
  bool Blanked = false;  // an empty file was shown: the area is white and takes no input, Data stays
  std::int32_t TopOffset = 0;
  std::int32_t CurrentOffset = 0;
  int CurrentArea = kAddressArea;
  std::int32_t SelStart = -1, SelEnd = -1;  // -1: none; in the hexadecimal area the end lies one past the last byte
  std::uint32_t m_lpr = 16;                 // bytes a line
  std::int32_t LinesPerPage = 1;
  bool ShowAddress = true, ShowAscii = true, ShowHex = true;
  bool WideAddress = false;  // addresses of 8 digits instead of 4
  bool KeyScroll = false;    // CurrentOffset doesn't follow the scrolling
  bool LastLinePartial = true;
  std::int32_t LineHeight = 0;  // pixels; 0: not measured yet
  std::int32_t CharWidth = -1;
  bool Recalc = true;
  std::int32_t HexColumnX = 0, AsciiColumnX = 0;
  int Nibble = 2;  // the caret's digit, counted from the right
  int DigitsPerByte = 2;
  std::int32_t CaretX = 0, CaretY = 0;
  std::function<void()> Changed = [] {};  // something that shows has changed

  void SetOptions(bool showAddress, bool showHex, bool showAscii, bool wideAddress, int digitsPerByte);
  // A new buffer of zero bytes for the caller to fill; takes the line length from the profile. Offsets that lie behind
  // its end go back to 0.
  std::span<std::uint8_t> SetSize(std::size_t size);

  // The font's measures in pixels. The height counts once, the width each time.
  void Measure(int charWidth, int lineHeight);
  // A new client size in pixels. While the window is visible the bytes a line follow the width and go to the profile.
  void OnSize(int width, int height, bool visible);
  // What a paint does first: lines a page, and with Recalc the columns. False when there is nothing to paint.
  bool PreparePaint();

  void Scroll(HexScroll code, int position = 0);
  void OnMouseWheel(int delta);
  void GoTo(std::uint32_t address);

  void OnKeyDown(HexKey key, HexModifiers modifiers);
  void OnChar(char32_t character, HexModifiers modifiers);

  // `x`, `y` in client pixels.
  void OnLButtonDown(int x, int y, bool shift);
  void OnDragStart();              // the gesture that the last press began has become a drag
  void OnMouseMove(int x, int y);  // with the left button down
  void OnLButtonUp() { dragging_ = false; }

  bool HasSelection() const { return SelStart >= 0 && SelEnd >= 0; }
  bool Dragging() const { return dragging_; }
  // The caret's size in pixels, and whether its point lies in the client area.
  int CaretWidth() const;
  bool CaretVisible() const { return caretInView_; }
  // Lines from the client height, and the scroll bar that goes with them.
  int VisibleLines() const { return LineHeight > 0 ? clientHeight_ / LineHeight : 0; }
  HexScrollBar ScrollBar() const;

  std::int32_t DataLength() const { return static_cast<std::int32_t>(Data.size()); }
  int AddressCells() const { return WideAddress ? 9 : 5; }  // the last one blank

 private:
  bool Live() const { return !Data.empty() && !Blanked; }
  std::int32_t LineBytes() const { return static_cast<std::int32_t>(m_lpr); }
  std::int32_t LastPage() const;  // TopOffset of the last page; negative when all fits
  void PlaceCaret();
  void MoveCaret(int dx, int dy);
  void ScrollForKey(HexScroll code);
  bool HitTest(int x, int y);
  bool HitAddress(int row, int column);
  bool HitHex(int row, int column);
  bool HitAscii(int row, int column);
  void SetCaret(int column, int row);
  void ClearSelection() { SelStart = SelEnd = -1; }
  void ExtendSelection(bool oneMore) { SelEnd = CurrentOffset + (oneMore ? 1 : 0); }
  void MoveByKey(HexKey key, bool control);
  void CutSelection();
  void TypeHexDigit(char32_t character);
  void KeepInside();

  int clientWidth_ = 0, clientHeight_ = 0;
  bool dragging_ = false;
  bool caretInView_ = false;
};

CMiniHexEditView& TheHexView();
void ResetHexView();

// All three columns, wide addresses, two digits a byte: as the main window creates its view.
void ConfigureHexView();

}  // namespace pyxis
