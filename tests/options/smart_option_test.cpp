// Smart Option: .tin files, the word's bits, and the dialog.
#include "options/smart_option.h"

#include <bit>

#include "catalogue/chip_catalogue.h"
#include "data/cases.h"
#include "options/smart_option_dlg.h"
#include "options/tin_file.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"

namespace pyxis::test {
namespace {

std::string Shown(const OptionRect& r) { return Printf("%d %d %d %d", r.x, r.y, r.width, r.height); }

class RecordingWindow : public OptionWindow {
 public:
  int clientHeight = 200;
  OptionRect placement{50, 60, 300, 250};
  std::string title;
  Texts filled, painted;
  std::vector<OptionRect> lists;

  int VerticalBaseUnit() override { return 17; }
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
    filled.push_back(Printf("%zu from %s, %d", alternatives.size(), alternatives.at(0).c_str(), selection));
    EXPECT_EQ(list, static_cast<int>(filled.size()));
  }
  void DrawLabel(int x, int y, const std::string& text, OptionColor color) override {
    painted.push_back(Printf("%d,%d %s%s", x, y, text.c_str(), color == OptionColor::Blue ? "blue" : "black"));
  }
};

// The texts of things, "|" between them.
std::string Joined(const auto& things, const auto& text, const std::string& between = "|") {
  std::string all;
  bool first = true;
  for (const auto& thing : things) all += (std::exchange(first, false) ? "" : between) + text(thing);
  return all;
}
const auto kAsText = [](const std::string& text) { return text; };

class SmartOption : public Bench, public ::testing::WithParamInterface<std::string> {
 protected:
  using Row = SmartOptionRow;
  using Line = const Case&;
  void Shows(const char* name, const std::function<std::string()>& text) { script.states[name] = text; }
  void ShowsRows(const char* name, const std::function<std::string(const Row&)>& text) {
    Shows(name, [text] { return Joined(CurrentRows(), text); });
  }
  template <typename Numbers>
  static void Take(Line line, Numbers& numbers) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
      numbers[i] = static_cast<typename Numbers::value_type>(line.Number(i + 1));
  }
  SmartOption() {
    AllocateSmartOptionBuffer();
    op.smartOption = [this](CSmartOptionDlg& dialog) {
      dialog.OnInitDialog(window);
      cells = dialog.rows;
      EXPECT_TRUE(window.painted.empty());
      dialog.PaintOptionLabels(window);
      return DialogEnd::Cancel;
    };
    auto& on = script.actions;
    on["read"] = [this](Line line) { WriteText("a.tin", line[1]), Read(Path("a.tin")); };
    on["read a folder"] = [this](Line) { Read(folder.string()); };
    on["chip"] = [this](Line line) {
      TheAppState().selection.SelectedChip = line[1];
      if (!line[2].empty()) WriteText("tin/" + line[1] + ".tin", line[2]);
    };
    on["all choices"] = [](Line line) { OptionChoices().fill(static_cast<std::int32_t>(line.Number(1))); };
    on["choices"] = [](Line line) { Take(line, OptionChoices()); };
    on["no table"] = [](Line) { FreeSmartOptionBuffer(); };
    on["masks"] = [](Line line) { Take(line, TheAppState().selection.OptionMasks); };
    on["unpack"] = [this](Line line) { result = UnpackSystemConfig(static_cast<std::int32_t>(line.Number(1))); };
    on["placement"] = [this](Line line) {
      std::array<int, 3> at;
      Take(line, at);
      window.placement = {at[0], at[1], at[2], 250};
    };
    on["height"] = [this](Line line) { window.clientHeight = static_cast<int>(line.Number(1)); };
    on["open"] = [this](Line line) {
      TheAppState().conversion.SystemConfigWord = static_cast<std::int32_t>(line.Number(1));
      window.filled.clear(), window.painted.clear(), window.lists.clear();
      OnSmartOption();
      EXPECT_TRUE(op.told.empty());
    };
    Shows("rows", [this] { return std::to_string(result); });
    ShowsRows("labels", [](const Row& row) { return std::string(LabelOf(row)); });
    ShowsRows("alternatives", [](const Row& row) { return Joined(AlternativesOf(row), kAsText, "/"); });
    ShowsRows("items", [](const Row& row) { return Printf("%u/%u", row.ItemsLength, row.ItemCount); });
    ShowsRows("addresses", [](const Row& row) { return std::to_string(row.SwitchAddress); });
    ShowsRows("values", [](const Row& row) { return Printf("%u/%u", row.SwitchValues[0], row.SwitchValues[1]); });
    Shows("choices", [] {
      return Joined(
          OptionChoices(), [](int choice) { return std::to_string(choice); }, " ");
    });
    Shows("title", [this] { return window.title; });
    Shows("lists", [this] { return Joined(window.filled, kAsText); });
    Shows("painted", [this] { return Joined(window.painted, kAsText); });
    Shows("placed", [this] { return Shown(window.placement); });
    Shows("cells", [this] {
      const auto list = [](const CSmartOptionDlg::Cells& row) { return Shown(row.list); };
      EXPECT_EQ(Joined(window.lists, Shown), Joined(cells, list));
      return Joined(cells, [&](const CSmartOptionDlg::Cells& row) { return Shown(row.caption) + "/" + list(row); });
    });
  }
  void Read(const std::string& path) { result = ReadTinFile(path); }
  // Every row of the catalogue, selected.
  static void ForEachRow(const std::function<void(const ChipEntry&)>& check) {
    for (int list = 0; list < kListCount; ++list)
      for (const ChipEntry& chip : ChipList(list)) {
        SCOPED_TRACE(chip.TypeLabel);
        int series = 0, type = 0;
        ASSERT_EQ(FindChip(chip.TypeLabel, series, type), 1);
        check(chip);
      }
  }
  RecordingWindow window;
  std::vector<CSmartOptionDlg::Cells> cells;
  int result = -1;
  Script script;
};

TEST_P(SmartOption, Follows) { script.Run("smart_option.tsv", GetParam()); }
INSTANTIATE_TEST_SUITE_P(Scripts, SmartOption,
                         ::testing::ValuesIn(SectionsBut("smart_option.tsv", {"protection in words"})));

// The file of each IC has a row for each option, with the alternatives that its words select; and what Set Protect does
// to the word shows in words.
TEST_F(SmartOption, TheProgramFoldersFilesFitTheMasks) {
  const auto read = [](const std::string& chip) { return pyxis::folder::MakeTin(chip); };
  ForEachRow([&](const ChipEntry& chip) {
    if (!chip.HasSmartOption) return;
    Write("a.tin", read(chip.ChipName));
    ASSERT_GT(ReadTinFile(Path("a.tin")), 0);
    for (std::size_t i = 0; i < 9 && chip.OptionMasks[i] != 0; ++i) {
      ASSERT_LT(i, CurrentRows().size());
      EXPECT_GE(AlternativesOf(CurrentRows()[i]).size(), 1U << std::popcount(chip.OptionMasks[i]));
    }
  });
  ForEachCase("smart_option.tsv", "protection in words", [&](const Case& c) {
    int series = 0, type = 0;
    ASSERT_TRUE(FindChip(c[0], series, type));
    Write("a.tin", read(c[0]));
    ASSERT_GT(ReadTinFile(Path("a.tin")), 0);
    for (const std::size_t cell : {1U, 2U}) {
      UnpackSystemConfig(static_cast<std::int32_t>(c.Number(cell)));
      EXPECT_EQ(AlternativesOf(CurrentRows()[0])[static_cast<std::size_t>(OptionChoices()[0])],
                cell == 1 ? "Protected" : "Not protected");
    }
  });
}

}  // namespace
}  // namespace pyxis::test
