#include "view/numeric_edit.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "platform/clipboard.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"

namespace pyxis {

namespace {

constexpr std::size_t kPrefixLength = 2;

bool IsX(char32_t c) { return c == U'x' || c == U'X'; }
bool IsLetter(char32_t c) { return (c >= U'A' && c <= U'F') || (c >= U'a' && c <= U'f'); }
bool IsHexDigit(char c) { return (c >= '0' && c <= '9') || IsLetter(static_cast<unsigned char>(c)); }
bool AllDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsHexDigit); }

bool BeginsWithPrefix(std::string_view text) {
  return text.size() >= kPrefixLength && text[0] == '0' && IsX(static_cast<unsigned char>(text[1]));
}

std::string_view Digits(std::string_view text) { return BeginsWithPrefix(text) ? text.substr(kPrefixLength) : text; }

std::optional<std::uint32_t> ValueOf(std::string_view text, bool hex) {
  const std::string_view digits = hex ? Digits(text) : text;
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, hex ? 16 : 10);
  if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
  return value;
}

// As the fields write numbers: capital letters behind a small x.
std::string Normalised(std::string_view text) {
  std::string result = ToUpper(text);
  std::replace(result.begin(), result.end(), 'X', 'x');
  return result;
}

void TellNoClipboard() { TheMachine().op->Tell("Cannot open clipboard!", kMessageCaption, MessageIcon::Warning); }

std::optional<std::string> ClipboardText() {
  std::optional<std::string> text;
  if (!TheMachine().clipboard->Read(text)) text.reset();
  return text;
}

void NormaliseClipboard() {
  const auto text = ClipboardText();
  if (text && Normalised(*text) != *text) TheMachine().clipboard->Write(Normalised(*text));
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

// Every change of the text ends here.
void CNumericEdit::Take(State state) {
  const bool other = state.text != text_;
  text_ = std::move(state.text);
  start_ = state.start;
  end_ = state.end;
  HexMode = BeginsWithPrefix(text_) ||
            std::any_of(text_.begin(), text_.end(), [](char c) { return IsLetter(static_cast<unsigned char>(c)); });
  Changed();
  if (other) TextChanged();
}

void CNumericEdit::SetText(const std::string& text) {
  undo_.reset();
  typing_ = false;
  Take({text, 0, 0});
}

void CNumericEdit::Select(std::size_t start, std::size_t end) {
  const std::size_t newStart = std::min({start, end, text_.size()});
  const std::size_t newEnd = std::min(std::max(start, end), text_.size());
  if (newStart == start_ && newEnd == end_) return;
  start_ = newStart;
  end_ = newEnd;
  typing_ = false;
  Changed();
}

std::uint32_t CNumericEdit::GetValue() const { return ValueOf(text_, HexMode).value_or(0); }

void CNumericEdit::SetValue(std::uint32_t value, bool hex) { SetText(Printf(hex ? "0x%x" : "%u", value)); }

void CNumericEdit::SetHexColours(Colour text, Colour back) {
  HexTextColour = text;
  HexBackColour = back;
  Changed();
}

void CNumericEdit::SetDecimalColours(Colour text, Colour back) {
  DecimalTextColour = text;
  DecimalBackColour = back;
  Changed();
}

void CNumericEdit::ConvertRadix() {
  const auto value = ValueOf(text_, HexMode);
  const std::string_view digits = Digits(text_);
  if (!value && !digits.empty() && AllDigits(digits)) return;  // beyond 32 bits: better left as it is than lost
  SetText(Printf(HexMode ? "%u" : "0x%X", value.value_or(0)));
}

bool CNumericEdit::HasPrefix() const { return text_.size() > 1 && IsX(static_cast<unsigned char>(text_[1])); }

bool CNumericEdit::FirstOfPrefixSelected() const { return HasPrefix() && start_ == 0 && end_ == 1; }

// The character as it goes in; nothing when it is dropped.
std::optional<char> CNumericEdit::Admitted(char32_t character) const {
  if (HasPrefix() && start_ < kPrefixLength && end_ < kPrefixLength) return std::nullopt;
  if (IsX(character) && start_ == 1 && text_[0] == '0') return 'x';
  if (character >= U'0' && character <= U'9') return static_cast<char>(character);
  if (IsLetter(character)) return static_cast<char>(character >= U'a' ? character - U'a' + U'A' : character);
  return std::nullopt;
}

// What doesn't fit the length is cut off, as an edit control does.
void CNumericEdit::ReplaceSelection(std::string with, bool typing) {
  const std::size_t kept = text_.size() - (end_ - start_);
  with.resize(std::min(with.size(), maxLength > kept ? maxLength - kept : 0));
  if (with.empty() && start_ == end_) return;
  if (!typing || !typing_ || start_ != end_) undo_ = State{text_, start_, end_};
  typing_ = typing;
  const std::size_t caret = start_ + with.size();
  Take({text_.substr(0, start_) + with + text_.substr(end_), caret, caret});
}

void CNumericEdit::TypeCharacter(char32_t character) {
  if (readOnly) return;
  if (const auto admitted = Admitted(character)) ReplaceSelection(std::string(1, *admitted), true);
}

void CNumericEdit::Backspace() {
  if (readOnly || (HasPrefix() && text_[0] == '0' && end_ == 1)) return;
  if (start_ == end_ && start_ > 0) --start_;
  ReplaceSelection("", false);
}

void CNumericEdit::DeleteKey() {
  if (readOnly || (HasPrefix() && start_ == 0 && end_ < kPrefixLength)) return;
  if (start_ == end_ && end_ < text_.size()) ++end_;
  ReplaceSelection("", false);
}

void CNumericEdit::CutKey() {
  if (!FirstOfPrefixSelected()) Cut();
}

void CNumericEdit::CopyKey() { Copy(); }

void CNumericEdit::PasteKey() { Paste(); }

void CNumericEdit::UndoKey() { Undo(); }

bool CNumericEdit::PasteFits(const std::string& pasted) const {
  const bool coversPrefix = start_ == 0 && end_ >= kPrefixLength;
  if (HasPrefix() && end_ < kPrefixLength) return false;
  // Cut off, it would be another number.
  if (text_.size() - (end_ - start_) + pasted.size() > maxLength) return false;
  std::string_view rest = pasted;
  if (BeginsWithPrefix(rest)) {
    if (start_ != 0 || (HasPrefix() && !coversPrefix)) return false;
    rest.remove_prefix(kPrefixLength);
  } else if (!rest.empty() && IsX(static_cast<unsigned char>(rest[0]))) {
    if (start_ != 1 || text_[0] != '0') return false;
    rest.remove_prefix(1);
  }
  if (!AllDigits(rest)) return false;
  // Whatever the selection spans, the field stays a number.
  return AllDigits(Digits(text_.substr(0, start_) + pasted + text_.substr(end_)));
}

void CNumericEdit::Undo() {
  if (readOnly || !undo_) return;
  State now{text_, start_, end_};
  State before = std::move(*undo_);
  undo_ = std::move(now);  // a second undo takes the first one back
  typing_ = false;
  Take(std::move(before));
}

void CNumericEdit::Copy() const {
  if (start_ != end_ && !TheMachine().clipboard->Write(text_.substr(start_, end_ - start_))) TellNoClipboard();
}

void CNumericEdit::Cut() {
  if (readOnly || start_ == end_) return;
  if (TheMachine().clipboard->Write(text_.substr(start_, end_ - start_))) {
    ReplaceSelection("", false);
  } else {
    TellNoClipboard();
  }
}

void CNumericEdit::Paste() {
  if (readOnly) return;
  std::optional<std::string> text;
  if (!TheMachine().clipboard->Read(text)) {
    TellNoClipboard();
  } else if (text && PasteFits(*text)) {
    ReplaceSelection(*text, false);
  }
}

bool CNumericEdit::CommandEnabled(Command command) const {
  const bool selected = start_ != end_;
  switch (command) {
    case Command::Undo:
      return undo_.has_value() && !readOnly;
    case Command::Cut:
    case Command::Delete:
      return selected && !readOnly && !FirstOfPrefixSelected();
    case Command::Copy:
      return selected;
    case Command::Paste: {
      const auto text = ClipboardText();
      return text && !readOnly && PasteFits(*text);
    }
    case Command::SelectAll:
      return end_ - start_ < text_.size();
    case Command::Convert:
      break;
  }
  return !text_.empty() && !(BeginsWithPrefix(text_) && text_.size() == kPrefixLength);
}

void CNumericEdit::OnCommand(Command command) {
  if (!CommandEnabled(command)) return;
  if (command < Command::SelectAll) NormaliseClipboard();
  switch (command) {
    case Command::Undo:
      return Undo();
    case Command::Cut:
      return Cut();
    case Command::Copy:
      return Copy();
    case Command::Paste:
      return Paste();
    case Command::Delete:
      return ReplaceSelection("", false);
    case Command::SelectAll:
      return Select(0, text_.size());
    case Command::Convert:
      return ConvertRadix();
  }
}

}  // namespace pyxis
