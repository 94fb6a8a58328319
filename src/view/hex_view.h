// The hex view's model: a byte buffer in three columns, address, hexadecimal and ASCII. It knows bytes, lines, columns
// and pixels and nothing of windows: the window measures the font, hands events in and paints what hex_picture.h makes.
// Edits stay in the view's own copy; they reach neither a file nor the writer.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "view/hex_caret.h"
#include "view/hex_editing.h"
#include "view/hex_geometry.h"

namespace pyxis {

enum class HexScroll { LineUp, LineDown, PageUp, PageDown, ThumbTrack };

inline constexpr int kWheelUnit = 60;  // of a wheel's delta, one line

enum class HexKey { PageUp, PageDown, Home, End, Left, Right, Up, Down };

struct HexModifiers {
  bool shift = false;
  bool control = false;
};

class CMiniHexEditView {
 public:
  bool Blanked = false;  // an empty file was shown: the area is white and takes no input, Data stays
  HexGeometry geometry;
  HexCaret caret;
  HexSelection selection;
  HexEditing editing;
  std::function<void()> Changed = [] {};  // something that shows has changed

  // At most 8 digits a byte.
  void SetOptions(bool showAddress, bool showHex, bool showAscii, bool wideAddress, int digitsPerByte);
  // A new buffer of zero bytes for the caller to fill; takes the line length from the profile. Offsets that lie behind
  // its end go back to 0.
  std::span<std::uint8_t> SetSize(std::size_t size);

  // The font's measures in pixels. The height counts once, the width each time.
  void Measure(int charWidth, int lineHeight);
  // A new client size in pixels. In a window that has been seen the bytes a line follow the width and go to the
  // profile; before, it is the window's layout and no change of size.
  void OnSize(int width, int height, bool seen);
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

  void ClearSelection();
  // There are bytes, and they show.
  bool Live() const { return !editing.Data.empty() && !Blanked; }
  bool CaretVisible() const { return Live() && caret.InView; }
  std::int32_t DataLength() const { return editing.DataLength(); }
  HexScrollBar ScrollBar() const { return Live() ? geometry.ScrollBar(DataLength()) : HexScrollBar{}; }

 private:
  std::int32_t LastPage() const { return geometry.LastPage(DataLength()); }
  void MoveCaret(int dx, int dy);
  void ScrollForKey(HexScroll code);
  bool HitTest(int x, int y);
  void ExtendSelection(bool oneMore) { selection.SelEnd = caret.CurrentOffset + (oneMore ? 1 : 0); }
  void MoveByKey(HexKey key, bool control);
  void CutSelection();
  void KeepInside();
};

CMiniHexEditView& TheHexView();
void ResetHexView();

// All three columns, wide addresses, two digits a byte: as the main window creates its view.
void ConfigureHexView();

}  // namespace pyxis
