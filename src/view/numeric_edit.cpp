#include "view/numeric_edit.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/text.h"

namespace pyxis {

namespace {

constexpr std::size_t kPrefixLength = 2;

bool IsX(char32_t c) { return c == U'x' || c == U'X'; }
bool IsDigit(char32_t c) { return c >= U'0' && c <= U'9'; }
bool IsLetter(char32_t c) { return (c >= U'A' && c <= U'F') || (c >= U'a' && c <= U'f'); }
bool IsHexDigit(char c) { return IsDigit(static_cast<unsigned char>(c)) || IsLetter(static_cast<unsigned char>(c)); }
bool AllDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsHexDigit); }
bool BeginsWithX(std::string_view text) { return !text.empty() && IsX(static_cast<unsigned char>(text[0])); }

bool BeginsWithPrefix(std::string_view text) { return text.starts_with('0') && BeginsWithX(text.substr(1)); }

std::string_view Digits(std::string_view text) { return BeginsWithPrefix(text) ? text.substr(kPrefixLength) : text; }

std::optional<std::uint32_t> ValueOf(std::string_view text, bool hex) {
  const std::string_view digits = hex ? Digits(text) : text;
  std::uint32_t value = 0;
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
  return BeginsWithPrefix(text) || std::any_of(text.begin(), text.end(), [](unsigned char c) { return IsLetter(c); });
}

std::uint32_t CNumericEdit::GetValue() const { return ValueOf(text, HexMode()).value_or(0); }

std::string CNumericEdit::Format(std::uint32_t value, bool hex) { return Printf(hex ? "0x%x" : "%u", value); }

std::string CNumericEdit::ConvertRadix() const {
  const auto value = ValueOf(text, HexMode());
  const std::string_view digits = Digits(text);
  if (!value && !digits.empty() && AllDigits(digits)) return text;  // beyond 32 bits: better left as it is than lost
  return Printf(HexMode() ? "%u" : "0x%X", value.value_or(0));
}

bool CNumericEdit::HasPrefix() const { return text.size() > 1 && BeginsWithX(text.substr(1)); }

bool CNumericEdit::FirstOfPrefixSelected() const { return HasPrefix() && start == 0 && end == 1; }

std::optional<char> CNumericEdit::Typed(char32_t character) const {
  if (readOnly || LengthWith(1) > maxLength || (HasPrefix() && end < kPrefixLength)) return std::nullopt;
  if (IsX(character) && start == 1 && text[0] == '0') return 'x';
  if (!IsDigit(character) && !IsLetter(character)) return std::nullopt;
  return static_cast<char>(character >= U'a' ? character - U'a' + U'A' : character);
}

bool CNumericEdit::BackspacePasses() const { return !readOnly && !(HasPrefix() && text[0] == '0' && end == 1); }

bool CNumericEdit::DeletePasses() const { return !readOnly && !(HasPrefix() && start == 0 && end < kPrefixLength); }

bool CNumericEdit::CutPasses() const { return !readOnly && !FirstOfPrefixSelected(); }

bool CNumericEdit::PastePasses(const std::string& pasted) const {
  if (readOnly || (HasPrefix() && end < kPrefixLength)) return false;
  // Cut off, it would be another number.
  if (LengthWith(pasted.size()) > maxLength) return false;
  const bool coversPrefix = start == 0 && end >= kPrefixLength;
  std::string_view rest = pasted;
  if (BeginsWithPrefix(rest)) {
    if (start != 0 || (HasPrefix() && !coversPrefix)) return false;
    rest.remove_prefix(kPrefixLength);
  } else if (BeginsWithX(rest)) {
    if (start != 1 || text[0] != '0') return false;
    rest.remove_prefix(1);
  }
  if (!AllDigits(rest)) return false;
  // Whatever the selection spans, the field stays a number.
  return AllDigits(Digits(text.substr(0, start) + pasted + text.substr(end)));
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
  return !text.empty() && !(BeginsWithPrefix(text) && text.size() == kPrefixLength);
}

}  // namespace pyxis
