#include "view/hex_geometry.h"

#include <algorithm>

namespace pyxis {

HexScrollBar HexGeometry::ScrollBar(std::int32_t dataLength) const {
  const int range = dataLength / LineBytes(), page = VisibleLines();
  return {.range = range, .page = page, .position = TopOffset / LineBytes(), .enabled = range > page};
}

void HexGeometry::FitLine() {
  const int cells = DigitsPerByte + 1 + (ShowAscii ? 1 : 0);
  m_lpr = static_cast<std::uint32_t>(std::max((ClientWidth / CharWidth - AddressCells()) / cells, 1));
  Recalc = true;
}

bool HexGeometry::Prepare(std::int32_t dataLength) {
  LinesPerPage = VisibleLines();
  if (!Recalc) return false;
  HexColumnX = ShowAddress ? AddressCells() * CharWidth : 0;
  AsciiColumnX = HexColumnX + (ShowHex ? LineBytes() * HexStep() : 0);
  LastLinePartial = LinesPerPage * LineBytes() > dataLength && dataLength % LineBytes() != 0;
  Recalc = false;
  return true;
}

// Cells count from 1.
std::optional<HexHit> HexGeometry::HitTest(int x, int y, std::int32_t dataLength) const {
  if (CharWidth <= 0 || LineHeight <= 0) return std::nullopt;
  const int row = y / LineHeight;
  const int column = (x + CharWidth) / CharWidth;
  if (y < 0 || row > LinesPerPage || row * LineBytes() > dataLength) return std::nullopt;
  if (const auto hit = HitAddress(row, column)) return hit;
  if (const auto hit = HitHex(row, column)) return hit;
  return HitAscii(row, column);
}

std::optional<HexHit> HexGeometry::HitAddress(int row, int column) const {
  if (!ShowAddress || column > (WideAddress ? 8 : 5)) return std::nullopt;
  return HexHit{kAddressArea, TopOffset + row * LineBytes(), 0, 0, row};
}

std::optional<HexHit> HexGeometry::HitHex(int row, int column) const {
  const int first = HexColumnX / CharWidth;
  const int step = DigitsPerByte + 1;
  if (!ShowHex || column >= first + LineBytes() * step) return std::nullopt;
  // The blank behind a byte belongs to the next one.
  if ((column - AddressCells()) % step != 0) --column;
  return HexHit{kHexArea, TopOffset + row * LineBytes() + (column - first) / step,
                DigitsPerByte - (column - AddressCells()) % step, column, row};
}

std::optional<HexHit> HexGeometry::HitAscii(int row, int column) const {
  const int first = AsciiColumnX / CharWidth;
  if (!ShowAscii || column > first + LineBytes()) return std::nullopt;
  return HexHit{kAsciiArea, std::max(TopOffset + row * LineBytes() + column - first - 1, 0), 0,
                column - 1 < first ? column : column - 1, row};
}

}  // namespace pyxis
