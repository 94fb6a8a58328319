#include "view/numeric_edit.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/hex_digits.h"
#include "platform/text.h"

namespace pyxis {

namespace {

constexpr std::size_t kPrefixLength = 2;

bool IsX(char c) { return c == 'x' || c == 'X'; }
bool AllDigits(std::string_view text) { return CountHexDigits(text) == text.size(); }

std::optional<std::uint32_t> ValueOf(std::string_view text, bool hex) {
  const std::string_view digits = hex ? WithoutHexPrefix(text) : text;
  std::uint32_t value{};
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, hex ? 16 : 10);
  if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
  return value;
}

}  // namespace

const std::array<CNumericEdit::MenuRow, 7> CNumericEdit::kMenu{{
    {Command::Undo, "&Undo", false},
    {Command::Cut, "Cu&t", true},
    {Command::Copy, "&Copy", false},
    {Command::Paste, "&Paste", false},
    {Command::Delete, "&Delete", false},
    {Command::SelectAll, "Select &All", true},
    {Command::Convert, "Con&vert", true},
}};

bool CNumericEdit::HexMode() const {
  return HasHexPrefix(text) || std::any_of(text.begin(), text.end(), [](char c) { return HexDigitValue(c) > 9; });
}

std::uint32_t CNumericEdit::GetValue() const { return ValueOf(text, HexMode()).value_or(0); }

std::string CNumericEdit::Format(std::uint32_t value, bool hex) { return Printf(hex ? "0x%x" : "%u", value); }

std::string CNumericEdit::ConvertRadix() const {
  const auto value = ValueOf(text, HexMode());
  const std::string_view digits = WithoutHexPrefix(text);
  if (!value && !digits.empty() && AllDigits(digits)) return text;  // beyond 32 bits: better left as it is than lost
  return Printf(HexMode() ? "%u" : "0x%X", value.value_or(0));
}

bool CNumericEdit::HasPrefix() const { return text.find_first_of("xX") == 1; }

bool CNumericEdit::FirstOfPrefixSelected() const { return HasPrefix() && start == 0 && end == 1; }

std::optional<char> CNumericEdit::Typed(char32_t character) const {
  if (readOnly || LengthWith(1) > maxLength || (HasPrefix() && end < kPrefixLength)) return std::nullopt;
  if (character > 0x7F) return std::nullopt;
  const char typed = static_cast<char>(character);
  if (IsX(typed) && start == 1 && text[0] == '0') return 'x';
  if (HexDigitValue(typed) < 0) return std::nullopt;
  return ToUpper({&typed, 1})[0];
}

bool CNumericEdit::BackspacePasses() const { return !readOnly && !(HasPrefix() && end == 1); }

bool CNumericEdit::DeletePasses() const { return !readOnly && !(HasPrefix() && start == 0 && end < kPrefixLength); }

bool CNumericEdit::CutPasses() const { return !readOnly && !FirstOfPrefixSelected(); }

// Cut off, it would be another number; and the field stays one, wherever a pasted prefix or x comes to stand and
// whatever the selection spans.
bool CNumericEdit::PastePasses(const std::string& pasted) const {
  return !readOnly && !(HasPrefix() && end < kPrefixLength) && LengthWith(pasted.size()) <= maxLength &&
         AllDigits(WithoutHexPrefix(text.substr(0, start) + pasted + text.substr(end)));
}

bool CNumericEdit::CommandEnabled(Command command, const std::optional<std::string>& clipboard) const {
  const bool selected = start != end;
  switch (command) {
    case Command::Undo:
      return canUndo && !readOnly;
    case Command::Cut:
    case Command::Delete:
      return selected && CutPasses();
    case Command::Copy:
      return selected;
    case Command::Paste:
      return clipboard && PastePasses(*clipboard);
    case Command::SelectAll:
      return end - start < text.size();
    case Command::Convert:
      break;
  }
  return !text.empty() && !(HasHexPrefix(text) && text.size() == kPrefixLength);
}

}  // namespace pyxis
