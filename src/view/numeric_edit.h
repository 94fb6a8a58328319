// The number field of the serial number dialogs: hexadecimal and decimal numbers with an optional leading "0x". Here
// are its rules: what a key or a paste may do to the text, how the text reads, what the menu offers. The text, the
// selection and the undo steps are those of the line edit that asks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace pyxis {

struct Colour {
  std::uint8_t red, green, blue;
  bool operator==(const Colour&) const = default;
};

struct NumericColours {
  Colour HexTextColour{74, 115, 132};
  Colour HexBackColour{219, 247, 220};
  Colour DecimalTextColour{192, 97, 10};
  Colour DecimalBackColour{251, 244, 170};
};

// The field as it stands at the moment of the question.
struct CNumericEdit {
  // The entries of the context menu, in its order.
  enum class Command { Undo, Cut, Copy, Paste, Delete, SelectAll, Convert };
  struct MenuRow {
    Command command;
    const char* caption;  // with its mnemonic
    bool separatorBefore;
  };
  static const std::array<MenuRow, 7> kMenu;

  std::string text;
  std::size_t start = 0, end = 0;  // `end` is behind the last selected character; both are the caret without selection
  std::size_t maxLength = SIZE_MAX;  // characters that the operator can enter
  bool readOnly = false;
  bool canUndo = false;

  bool HexMode() const;              // the text reads as hexadecimal
  std::uint32_t GetValue() const;    // 0 for a text that is no number of 32 bits
  std::string ConvertRadix() const;  // the text afterwards

  // What goes in for a typed character, from 32 upward; nothing when it is dropped.
  std::optional<char> Typed(char32_t character) const;
  bool BackspacePasses() const;
  bool DeletePasses() const;
  bool CutPasses() const;
  bool PastePasses(const std::string& pasted) const;
  // `clipboard` is its text, if it holds any.
  bool CommandEnabled(Command command, const std::optional<std::string>& clipboard) const;

  // The text of a value.
  static std::string Format(std::uint32_t value, bool hex);

 private:
  bool HasPrefix() const;
  bool FirstOfPrefixSelected() const;
  std::size_t LengthWith(std::size_t added) const { return text.size() - (end - start) + added; }
};

}  // namespace pyxis
