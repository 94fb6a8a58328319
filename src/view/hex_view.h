// The model of the hex view: what it holds, where the caret is, what keys and clicks do. Painting is the window's.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pyxis {

enum class HexArea { Address = 0, Ascii = 1, Hex = 2 };
enum class ScrollCode { LineUp, LineDown, PageUp, PageDown, ThumbTrack };
enum class HexKey { PageUp, PageDown, Home, End, Left, Right, Up, Down };

class CMiniHexEditView {
 public:
  std::vector<std::uint8_t> Data;
  std::uint32_t DataLength = 0;
  std::int32_t TopOffset = 0;
  std::int32_t CurrentOffset = 0;
  HexArea CurrentArea = HexArea::Address;
  std::int32_t SelStart = -1, SelEnd = -1;
  std::uint32_t m_lpr = 16;  // bytes a line
  std::int32_t LinesPerPage = 1;
  bool ShowAddress = true, ShowAscii = true, ShowHex = true;
  bool WideAddress = false;
  bool KeyScroll = false;
  bool LastLinePartial = true;
  std::int32_t LineHeight = 0, CharWidth = -1;  // pixels
  bool Recalc = true;
  std::int32_t HexColumnX = 0, AsciiColumnX = 0;  // pixels
  std::int32_t Nibble = 2;
  std::int32_t DigitsPerByte = 2;
  std::int32_t CaretX = 0, CaretY = 0;  // pixels

  // The window's client area in pixels.
  std::int32_t ClientWidth = 0, ClientHeight = 0;
  bool Blanked = false;  // an empty path was shown: the area is white, the buffer stays

  void SetOptions(bool showAddress, bool showHex, bool showAscii, bool wideAddress, int digitsPerByte);
  // `size` zero bytes; m_lpr comes from the profile. The caller fills Data.
  std::vector<std::uint8_t>& SetSize(std::uint32_t size);

  // Before a paint: takes the font's measures and the client height, works the columns out anew if it must.
  void PreparePaint(std::int32_t charWidth, std::int32_t lineHeight);
  void OnSize(std::int32_t width, std::int32_t height, bool visible);

  struct ScrollBar {
    int range, page, position;
    bool enabled;
  };
  ScrollBar ScrollState() const;
  void Scroll(ScrollCode code, int position = 0);
  void OnMouseWheel(int delta);

  void PlaceCaret();
  bool CaretInClient() const;
  std::int32_t CaretWidth() const;
  void MoveCaret(int dx, int dy);
  bool HitTest(std::int32_t x, std::int32_t y);
  void OnKey(HexKey key, bool shift, bool ctrl);
  void OnChar(char32_t character, bool ctrl);
  // `dragStarts`: the press is the start of a drag.
  void OnLeftButtonDown(std::int32_t x, std::int32_t y, bool shift, bool dragStarts);
  void OnMouseMove(std::int32_t x, std::int32_t y, bool leftDown);
  void OnLeftButtonUp();
  void GotoAddress(std::uint32_t address);
  bool HasSelection() const { return SelStart >= 0 && SelEnd >= 0; }

  // One visible line, formatted. Only lines on the screen are ever formatted.
  struct Line {
    std::string address, hex, ascii;
    std::uint32_t offset, count;  // bytes of Data on this line
  };
  std::int32_t VisibleLines() const;
  Line FormatLine(std::int32_t row) const;
};

CMiniHexEditView& TheHexView();
void ResetHexView();

// Empty path: paints the area white, the buffer stays. Otherwise takes the whole file; a file that can't be opened
// changes nothing.
void ShowFile(const std::string& path);

class CGotoAddressDlg {
 public:
  std::string text = "00000";  // at most 5 characters
  std::uint32_t address = 0;
  void OnChange(const std::string& newText);
};

}  // namespace pyxis
