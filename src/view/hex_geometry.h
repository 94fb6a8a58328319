// Bytes, lines, columns and pixels of the hex view: where a byte stands, and what a point of the window means.
#pragma once

#include <cstdint>
#include <optional>

namespace pyxis {

// Which column holds the caret.
enum HexArea : int { kAddressArea = 0, kAsciiArea = 1, kHexArea = 2 };

// The vertical scroll bar, in lines: positions 0 to range - page + 1.
struct HexScrollBar {
  int range = 0, page = 0, position = 0;
  bool enabled = false;
  bool operator==(const HexScrollBar&) const = default;
};

// A point of the window: the byte, the digit where it is a hexadecimal one, and the caret's cell.
struct HexHit {
  HexArea area;
  std::int32_t offset;
  int nibble;
  int column, row;
};

struct HexGeometry {
  std::int32_t TopOffset = 0;  // of the byte at the top left
  std::uint32_t m_lpr = 16;    // bytes a line
  std::int32_t LinesPerPage = 1;
  bool ShowAddress = true, ShowAscii = true, ShowHex = true;
  bool WideAddress = false;  // addresses of 8 digits instead of 4
  int DigitsPerByte = 2;
  bool LastLinePartial = true;
  std::int32_t LineHeight = 0;  // pixels; 0: not measured yet
  std::int32_t CharWidth = -1;
  std::int32_t HexColumnX = 0, AsciiColumnX = 0;
  bool Recalc = true;
  std::int32_t ClientWidth = 0, ClientHeight = 0;

  std::int32_t LineBytes() const { return static_cast<std::int32_t>(m_lpr); }
  int AddressCells() const { return WideAddress ? 9 : 5; }         // the last one blank
  int HexStep() const { return (DigitsPerByte + 1) * CharWidth; }  // pixels from a byte to the next
  // Lines from the client height, and the scroll bar that goes with them.
  int VisibleLines() const { return LineHeight > 0 ? ClientHeight / LineHeight : 0; }
  HexScrollBar ScrollBar(std::int32_t dataLength) const;
  // TopOffset of the last page; negative when all fits.
  std::int32_t LastPage(std::int32_t dataLength) const { return dataLength - LinesPerPage * LineBytes(); }
  bool Contains(int x, int y) const { return x < ClientWidth && y < ClientHeight; }

  // The bytes a line that the client's width has room for.
  void FitLine();
  // Lines a page, and with Recalc the columns. True when the columns were worked out.
  bool Prepare(std::int32_t dataLength);
  std::optional<HexHit> HitTest(int x, int y, std::int32_t dataLength) const;

 private:
  std::optional<HexHit> HitAddress(int row, int column) const;
  std::optional<HexHit> HitHex(int row, int column) const;
  std::optional<HexHit> HitAscii(int row, int column) const;
};

}  // namespace pyxis
