// The hex view's caret and its selection.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>

#include "view/hex_geometry.h"

namespace pyxis {

struct HexCaret {
  std::int32_t CurrentOffset = 0;  // of the byte under the caret
  int CurrentArea = kAddressArea;
  int Nibble = 2;  // the caret's digit, counted from the right
  std::int32_t CaretX = 0, CaretY = 0;
  bool InView = false;     // its point lies in the client area
  bool KeyScroll = false;  // it doesn't follow the scrolling

  // Where its byte stands.
  void Place(const HexGeometry& geometry);
  // Where the operator has clicked.
  void Take(const HexHit& hit, const HexGeometry& geometry);
  void Move(int dx, int dy, const HexGeometry& geometry, std::int32_t dataLength);
  int Width(const HexGeometry& geometry) const;  // pixels
};

// -1: none; in the hexadecimal area the end lies one past the last byte.
struct HexSelection {
  std::int32_t SelStart = -1, SelEnd = -1;

  bool Exists() const { return SelStart >= 0 && SelEnd >= 0; }
  void Clear() { SelStart = SelEnd = -1; }
  std::pair<std::int32_t, std::int32_t> Range() const { return std::minmax(SelStart, SelEnd); }
};

}  // namespace pyxis
