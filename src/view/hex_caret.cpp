#include "view/hex_caret.h"

namespace pyxis {

int HexCaret::Width(const HexGeometry& geometry) const {
  return CurrentArea == kAddressArea ? (geometry.AddressCells() - 1) * geometry.CharWidth : geometry.CharWidth;
}

void HexCaret::Place(const HexGeometry& geometry) {
  const std::int32_t distance = CurrentOffset - geometry.TopOffset;
  const std::int32_t column = distance % geometry.LineBytes();
  CaretY = distance / geometry.LineBytes() * geometry.LineHeight;
  switch (CurrentArea) {
    case kAsciiArea:
      CaretX = geometry.AsciiColumnX + column * geometry.CharWidth;
      break;
    case kHexArea:
      if (Nibble < 1) Nibble = geometry.DigitsPerByte;
      if (Nibble > geometry.DigitsPerByte) Nibble = 1;
      CaretX =
          geometry.HexColumnX + column * geometry.HexStep() + geometry.CharWidth * (geometry.DigitsPerByte - Nibble);
      break;
    default:
      CaretX = 0;
      break;
  }
  InView = distance >= 0 && geometry.Contains(CaretX, CaretY);
}

void HexCaret::Take(const HexHit& hit, const HexGeometry& geometry) {
  CurrentArea = hit.area;
  CurrentOffset = hit.offset;
  if (hit.area == kHexArea) Nibble = hit.nibble;
  CaretX = hit.column * geometry.CharWidth;
  CaretY = hit.row * geometry.LineHeight;
  InView = geometry.Contains(CaretX, CaretY);
}

void HexCaret::Move(int dx, int dy, const HexGeometry& geometry, std::int32_t dataLength) {
  if (CurrentArea == kAsciiArea) {
    CurrentOffset += dx + dy * geometry.LineBytes();
  } else {
    Nibble -= dx;
    CurrentOffset += dy * geometry.LineBytes();
    if (Nibble > geometry.DigitsPerByte) --CurrentOffset;
    if (Nibble < 1) ++CurrentOffset;
  }
  if (CurrentOffset < 0) {
    CurrentOffset = 0;
    Nibble = geometry.DigitsPerByte;
  } else if (CurrentOffset >= dataLength) {
    CurrentOffset = dataLength - 1;
    Nibble = 1;
  }
}

}  // namespace pyxis
