// What the Smart Option dialog asks of the window that shows it. All lengths are pixels of the window; widths of text
// are those of the window's font.
#pragma once

#include <string>
#include <vector>

namespace pyxis {

struct OptionRect {
  int x = 0, y = 0, width = 0, height = 0;
  bool operator==(const OptionRect&) const = default;
};

enum class OptionColor { Black, Blue };

// A drop-down list of the window; 0 is none.
using OptionListHandle = int;

class OptionWindow {
 public:
  virtual ~OptionWindow() = default;

  // Height of eight vertical dialog units.
  virtual int VerticalBaseUnit() = 0;
  virtual int TextWidth(const std::string& text) = 0;
  virtual OptionRect Placement() = 0;
  // At a distance from the screen's top left corner.
  virtual void Place(const OptionRect& placement) = 0;
  virtual int ClientHeight() = 0;
  virtual void SetTitle(const std::string& title) = 0;

  // A disabled, visible drop-down list with a border and a vertical scroll bar. The height is that of the open list;
  // the name is for those who can't see the painted caption.
  virtual OptionListHandle CreateList(const OptionRect& rect, const std::string& name) = 0;
  // An index past the last alternative leaves the list without a selection.
  virtual void FillList(OptionListHandle list, const std::vector<std::string>& alternatives, int selection) = 0;

  // With a transparent background; x and y are the text's top left corner. Only while the window paints.
  virtual void DrawLabel(int x, int y, const std::string& text, OptionColor color) = 0;
};

}  // namespace pyxis
