// The number field of the serial number dialogs: hexadecimal and decimal numbers with an optional leading "0x". The
// model of one edit control: text, selection and undo, what each key does, the context menu. A window hands its keys
// and its selection to it and shows what comes out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace pyxis {

struct Colour {
  std::uint8_t red, green, blue;
  bool operator==(const Colour&) const = default;
};

class CNumericEdit {
 public:
  // The entries of the context menu, in its order.
  enum class Command { Undo, Cut, Copy, Paste, Delete, SelectAll, Convert };
  struct MenuRow {
    Command command;
    const char* caption;  // with its mnemonic
    bool separatorBefore;
  };
  static const std::array<MenuRow, 7> kMenu;

  Colour HexTextColour{74, 115, 132};
  Colour HexBackColour{219, 247, 220};
  Colour DecimalTextColour{192, 97, 10};
  Colour DecimalBackColour{251, 244, 170};
  bool HexMode = false;

  bool readOnly = false;
  std::size_t maxLength = SIZE_MAX;  // characters that the operator can enter
  // Repaint: text, selection or colours changed.
  std::function<void()> Changed = [] {};
  // The text changed, by the operator or by one of the functions below.
  std::function<void()> TextChanged = [] {};

  const std::string& Text() const { return text_; }
  std::size_t Start() const { return start_; }
  std::size_t End() const { return end_; }  // behind the last selected character; the caret where nothing is selected
  void SetText(const std::string& text);    // caret at the start, nothing to undo
  void Select(std::size_t start, std::size_t end);

  std::uint32_t GetValue() const;  // 0 for a text that is no number of 32 bits
  void SetValue(std::uint32_t value, bool hex);
  void SetHexColours(Colour text, Colour back);
  void SetDecimalColours(Colour text, Colour back);
  void ConvertRadix();

  // Keys. Each does what an edit control does, unless the rules drop the key.
  void TypeCharacter(char32_t character);  // from 32 upward
  void Backspace();
  void DeleteKey();
  void CutKey();    // Ctrl+X
  void CopyKey();   // Ctrl+C
  void PasteKey();  // Ctrl+V
  void UndoKey();   // Ctrl+Z

  bool CommandEnabled(Command command) const;
  // OnCommand of the menu; a greyed entry does nothing.
  void OnCommand(Command command);

 private:
  struct State {
    std::string text;
    std::size_t start, end;
  };
  bool HasPrefix() const;
  bool FirstOfPrefixSelected() const;
  bool PasteFits(const std::string& pasted) const;
  std::optional<char> Admitted(char32_t character) const;
  void ReplaceSelection(std::string with, bool typing);
  void Take(State state);
  void Undo();
  void Cut();
  void Copy() const;
  void Paste();

  std::string text_;
  std::size_t start_ = 0, end_ = 0;
  std::optional<State> undo_;
  bool typing_ = false;  // the last edit was a typed character: the next one joins its undo
};

}  // namespace pyxis
