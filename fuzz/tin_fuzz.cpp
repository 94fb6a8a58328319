// Any bytes as an option file; the first byte tells how much of the table an earlier file has filled. What was read is
// laid out and painted.
#include <cstdlib>

#include "options/smart_option.h"
#include "options/smart_option_dlg.h"
#include "options/tin_file.h"
#include "scratch.h"

namespace {

using namespace pyxis;

class SizeWindow : public OptionWindow {
 public:
  int VerticalBaseUnit() override { return 16; }
  int TextWidth(const std::string& text) override { return static_cast<int>(text.size()) * 7; }
  OptionRect Placement() override { return {0, 0, 300, 200}; }
  void Place(const OptionRect&) override {}
  int ClientHeight() override { return 180; }
  void SetTitle(const std::string&) override {}
  OptionListHandle CreateList(const OptionRect&, const std::string&) override { return 1; }
  void FillList(OptionListHandle, const std::vector<std::string>&, int) override {}
  void SetScroll(OptionScrollBar, const OptionScroll&) override {}
  int ScrollPosition(OptionScrollBar) override { return 0; }
  void DrawLabel(int, int, const std::string&, OptionColor) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  fuzz::Scratch scratch;
  ResetSmartOption();
  AllocateSmartOptionBuffer();
  for (SmartOptionRow& row : std::span(*TheSmartOptionBuffer()).first(data[0] % kSmartOptionSlots)) {
    row.Label[0] = 'x';
    row.LabelLength = 1;
    row.Items[0] = kItemSeparator;
  }
  scratch.Put("a.tin", data + 1, size - 1);
  const int count = ReadTinFile(scratch.Path("a.tin"));
  if (count != 0 && static_cast<std::size_t>(count) != CurrentRows().size()) std::abort();
  SizeWindow window;
  CSmartOptionDlg dialog;
  dialog.OnInitDialog(window);
  dialog.PaintOptionLabels(window);
  return 0;
}
