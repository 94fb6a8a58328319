#include "options/smart_option_dlg.h"

#include "options/smart_option.h"
#include "platform/text.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

// Ten pixels a character.
class RecordingWindow : public OptionWindow {
 public:
  int unit = 17, clientHeight = 200;
  OptionRect placement{50, 60, 300, 250};
  std::string title;
  Texts calls;
  std::vector<OptionRect> lists;

  int VerticalBaseUnit() override { return unit; }
  int TextWidth(const std::string& text) override { return 10 * static_cast<int>(text.size()); }
  OptionRect Placement() override { return placement; }
  void Place(const OptionRect& rect) override { placement = rect; }
  int ClientHeight() override { return clientHeight; }
  void SetTitle(const std::string& text) override { title = text; }
  OptionListHandle CreateList(const OptionRect& rect, const std::string&) override {
    lists.push_back(rect);
    return static_cast<int>(lists.size());
  }
  void FillList(OptionListHandle list, const Texts& alternatives, int selection) override {
    calls.push_back(Printf("list %d: %zu from %s, %d", list, alternatives.size(),
                           alternatives.empty() ? "" : alternatives[0].c_str(), selection));
  }
  void DrawLabel(int x, int y, const std::string& text, OptionColor color) override {
    calls.push_back(Printf("%d,%d %s%s", x, y, text.c_str(), color == OptionColor::Blue ? "blue" : "black"));
  }
};

class SmartOptionDialog : public Bench {
 protected:
  SmartOptionDialog() {
    AllocateSmartOptionBuffer();
    TheAppState().selection.SelectedChip = "QV8348";
    WriteText("tin/QV8348.tin",
              "[MENU]\nWdt\nOscillator\nLvr\n[ITEM]\non\1off\nlong alternative\1x\1y\1z\n1\0012\0013\n[FIRST]\n17\n"
              "[DIPSWITCH]\n3F 1\nSW\n");
    op.smartOption = [this](CSmartOptionDlg& dialog) {
      dialog.OnInitDialog(window);
      rows = dialog.rows;
      opening = std::exchange(window.calls, {});
      dialog.PaintOptionLabels(window);
      return DialogEnd::Cancel;
    };
  }
  // The calls of the opening, then those of a paint.
  Texts Open() {
    window.calls.clear();
    OnSmartOption();
    return window.calls;
  }
  RecordingWindow window;
  std::vector<CSmartOptionDlg::Cells> rows;
  Texts opening;
};

TEST_F(SmartOptionDialog, LaysTheRowsOut) {
  TheAppState().selection.OptionMasks = {0x2000, 0xC00, 0x300};
  TheAppState().conversion.SystemConfigWord = 0xF0FF;  // every field but the first all zeros
  Open();
  EXPECT_EQ(window.title, "Smart Option [ System config : F0FF ]");
  // U 17: caption 17 high, open list 127, rows 25 + 1 apart.
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(All(rows[0].caption, rows[0].list), All((OptionRect{2, 6, 100, 17}), (OptionRect{104, 2, 62, 127})));
  EXPECT_EQ(All(rows[1].caption, rows[1].list), All((OptionRect{2, 32, 170, 17}), (OptionRect{174, 28, 192, 127})));
  EXPECT_EQ(rows[2].list, (OptionRect{104, 54, 42, 127}));
  EXPECT_EQ(window.lists, (std::vector<OptionRect>{rows[0].list, rows[1].list, rows[2].list}));
  // The last row is past its last alternative.
  EXPECT_EQ(opening, (Texts{"list 1: 2 from on, 0", "list 2: 4 from long alternative, 3", "list 3: 3 from 1, 3"}));
  EXPECT_EQ(window.placement, (OptionRect{0, 0, 368 + 32, 250}));

  window.placement = {50, 60, 368, 250};  // what fits isn't moved
  Open();
  EXPECT_EQ(window.placement, (OptionRect{50, 60, 368, 250}));
}

TEST_F(SmartOptionDialog, WithoutAWordTheDefaultsHold) {
  OptionChoices() = {-3, 9, 9};
  Open();
  EXPECT_EQ(window.title, "Smart Option [ System config : FFFFFFFF ]");
  EXPECT_EQ(opening, (Texts{"list 1: 2 from on, 0", "list 2: 4 from long alternative, 1", "list 3: 3 from 1, 7"}));
}

TEST_F(SmartOptionDialog, PaintsWhatIsInView) {
  const std::string first = " 01. Wdt : black", second = " 02. Oscillator : blue", third = " 03. Lvr : blue";
  EXPECT_EQ(Open(), (Texts{"2,6" + first, "2,32" + second, "2,58" + third}));
  window.clientHeight = 32;  // its first pixel row is in view
  EXPECT_EQ(Open(), (Texts{"2,6" + first, "2,32" + second}));
  window.clientHeight = 31;
  EXPECT_EQ(Open(), (Texts{"2,6" + first}));
}

TEST_F(SmartOptionDialog, AMissingFileShowsNoRows) {
  Open();
  TheAppState().selection.SelectedChip = "QV8349";
  EXPECT_EQ(Open(), Texts{});
  EXPECT_TRUE(rows.empty() && opening.empty() && op.told.empty());
}

}  // namespace
}  // namespace pyxis::test
