// The model of the number field: which keys pass, the radix that the text reads in, the context menu, the paste test.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pyxis {

struct Colour {
  std::uint8_t red, green, blue;
};

class CNumericEdit {
 public:
  std::string text;
  int start = 0, end = 0;  // the selection, in characters
  bool readOnly = false;
  bool canUndo = false;
  bool HexMode = false;
  Colour HexTextColour{74, 115, 132}, HexBackColour{219, 247, 220};
  Colour DecimalTextColour{192, 97, 10}, DecimalBackColour{251, 244, 170};

  void OnChange(const std::string& newText);  // HexMode follows
  std::uint32_t GetValue() const;
  void SetValue(std::uint32_t value, bool hex);
  void SetHexColours(Colour text, Colour back);
  void SetDecimalColours(Colour text, Colour back);
  void ConvertRadix();

  // The character that reaches the control, or nothing when the key is dropped.
  std::optional<char> FilterChar(char character) const;
  bool BackspacePasses() const;
  bool DeletePasses() const;
  bool CutPasses() const;
  bool PastePasses(const std::string& clipboard) const;
  static std::string NormaliseClipboard(const std::string& clipboard);

  struct MenuState {
    bool undo, cut, copy, paste, erase, selectAll, convert;
  };
  MenuState ContextMenu(const std::optional<std::string>& clipboard) const;
};

}  // namespace pyxis
