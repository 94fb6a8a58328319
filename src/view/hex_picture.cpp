#include "view/hex_picture.h"

#include <algorithm>

namespace pyxis {

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

// Upper case, with leading zeros.
void AppendHex(std::string& text, std::uint32_t value, int digits) {
  while (--digits >= 0) text.push_back(kDigits[value >> 4 * digits & 0xF]);
}

char Shown(std::uint8_t byte) { return byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.'; }

}  // namespace

int HexLineCount(const CMiniHexEditView& view) {
  const auto lineBytes = static_cast<std::int32_t>(view.geometry.m_lpr);
  const std::int32_t left = std::max(view.DataLength() - view.geometry.TopOffset, 0);
  return std::min(view.geometry.VisibleLines(), left / lineBytes + (left % lineBytes != 0 ? 1 : 0));
}

void FormatHexLine(const CMiniHexEditView& view, int line, HexLine& out) {
  const auto lineBytes = static_cast<std::int32_t>(view.geometry.m_lpr);
  const std::int32_t first = view.geometry.TopOffset + line * lineBytes;
  const std::int32_t end = std::min(first + lineBytes, view.DataLength());
  out.address.clear();
  out.hex.clear();
  out.ascii.clear();
  if (view.geometry.ShowAddress)
    AppendHex(out.address, static_cast<std::uint32_t>(first), view.geometry.AddressCells() - 1);
  for (std::int32_t at = first; at < end; ++at) {
    const std::uint8_t byte = view.editing.Data[static_cast<std::size_t>(at)];
    if (view.geometry.ShowHex) {
      AppendHex(out.hex, byte, view.geometry.DigitsPerByte);
      out.hex.push_back(' ');
    }
    if (view.geometry.ShowAscii) out.ascii.push_back(Shown(byte));
  }
  out.selectedFrom = out.selectedTo = 0;
  if (!view.selection.Exists() || view.caret.CurrentArea == kAddressArea) return;
  const auto [from, to] = view.selection.Range();
  out.selectedFrom = std::clamp(from, first, end) - first;
  out.selectedTo = std::clamp(to, first, end) - first;
}

}  // namespace pyxis
