// Smart Option: the configuration word in words, from the IC's .tin file. Display only.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace pyxis {

struct SmartOptionRow {
  char Label[64];
  std::uint32_t LabelLength;
  char Items[256];
  std::uint32_t ItemsLength;
  std::uint32_t ItemCount;
  std::int32_t SwitchAddress;  // -1: none
  std::uint32_t SwitchValues[34];
};
static_assert(sizeof(SmartOptionRow) == 472);

inline constexpr int kSmartOptionSlots = 9;  // eight rows and the end mark

// Process-wide: SmartOptionBuffer exists from the main dialog's initialisation to its end.
std::vector<SmartOptionRow>& SmartOptionBuffer();
std::array<std::int32_t, kSmartOptionSlots>& OptionChoices();
void ResetSmartOption();

// 0 on failure, otherwise a row count.
int ReadTinFile(const std::string& path);
// 0 and nothing done for -1, otherwise 1.
int UnpackSystemConfig(std::int32_t word);

// Text width in pixels, and the vertical dialog base unit, of the window that shows the dialog.
struct TextMetrics {
  std::function<int(const std::string&)> width;
  int baseUnitY = 16;
};

struct OptionCell {
  int x, y, width, height;
};

class CSmartOptionDlg {
 public:
  void OnInitDialog(const TextMetrics& metrics);  // unpacks the word, builds the controls, sets the title

  struct RowView {
    std::string caption;  // label and " : "
    bool blue;            // no switch address
    OptionCell captionCell, listCell;
    std::vector<std::string> items;
    int selected;  // -1: no selection
  };
  std::string title;
  std::vector<RowView> rows;
  int rightEdge = 0;    // the largest right edge of a cell
  int nextRowTop = 0;
};

// The Smart Option button.
void OnSmartOption();

}  // namespace pyxis
