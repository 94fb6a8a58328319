// The hex view's model: offsets, columns, scrolling, caret, hit test, selection, typing.
#include "view/hex_view.h"

#include "data/cases.h"
#include "platform/text.h"
#include "view/goto_address.h"
#include "view/hex_picture.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

constexpr int kWidth = 8, kHeight = 16;  // of a character

class HexView : public Bench, public ::testing::WithParamInterface<const char*> {
 protected:
  // The numbers of a line's words.
  using Numbers = std::function<int(std::size_t)>;
  void Do(const char* name, const std::function<void(const Case&, const Numbers&)>& act) {
    script.actions[name] = [act](const Case& line) {
      act(line, [&](std::size_t i) { return static_cast<int>(line.Number(i)); });
    };
  }
  void Shows(const std::string& name, const std::function<long()>& number) {
    script.states[name] = [number] { return std::to_string(number()); };
  }
  // A window of that many bytes a line and lines, with a buffer that counts up.
  void Open(int size, int lineBytes, int lines) {
    view.Measure(kWidth, kHeight);
    view.OnSize((9 + 4 * lineBytes) * kWidth, lines * kHeight, true);
    auto data = view.SetSize(static_cast<std::size_t>(size));
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<std::uint8_t>(i);
    view.PreparePaint();
  }
  HexView() {
    ConfigureHexView();
    view.Measure(kWidth, kHeight);
    Do("open", [this](const Case&, const Numbers& n) { Open(n(1), 16, 10); });
    Do("file", [this](const Case& line, const Numbers&) {
      if (!line[2].empty()) WriteText(line[1], line[2]);
      ShowFile(line[1].empty() ? "" : Path(line[1]));
    });
    Do("columns", [this](const Case& line, const Numbers&) {
      view.SetOptions(line[1] != "ascii", line[1] != "ascii", line[1] != "hex", false, 2);
    });
    Do("size", [this](const Case& line, const Numbers& n) { view.OnSize(n(1), n(2), line[3] == "seen"); });
    Do("bytes", [this](const Case&, const Numbers& n) { view.SetSize(static_cast<std::size_t>(n(1))); });
    Do("profile", [this](const Case&, const Numbers& n) { profile.values[key] = n(1); });
    Do("top", [this](const Case&, const Numbers& n) { view.geometry.TopOffset = n(1); });
    Do("caret", [this](const Case&, const Numbers& n) { view.caret.CurrentOffset = n(1); });
    Do("select", [this](const Case&, const Numbers& n) { view.selection = {n(1), n(2)}; });
    // The columns stand where they stood until the next paint.
    Do("double width without addresses", [this](const Case&, const Numbers&) {
      view.Measure(2 * kWidth, kHeight);
      view.geometry.ShowAddress = false;
    });
    Do("blank", [this](const Case&, const Numbers&) { view.Blanked = true; });
    // Cells and rows from 0.
    Do("click", [this](const Case& line, const Numbers& n) {
      view.OnLButtonDown(n(1) * kWidth + 2, n(2) * kHeight + 3, line[3] == "shift");
    });
    Do("drag", [this](const Case&, const Numbers& n) {
      view.OnDragStart();
      view.OnMouseMove(n(1) * kWidth, n(2) * kHeight + 5);
    });
    Do("move", [this](const Case&, const Numbers& n) { view.OnMouseMove(n(1) * kWidth, n(2) * kHeight); });
    Do("key", [this](const Case& line, const Numbers&) {
      const Texts words = Parts(line[1], ' '), names{"pgup", "pgdn", "home", "end", "left", "right", "up", "down"};
      const auto at = std::find(names.begin(), names.end(), words.back()) - names.begin();
      ASSERT_LT(at, std::ssize(names));
      view.OnKeyDown(static_cast<HexKey>(at), {line[1].starts_with("shift"), line[1].find("ctrl") != line[1].npos});
    });
    Do("type", [this](const Case& line, const Numbers&) {
      for (const char c : line[1]) view.OnChar(static_cast<unsigned char>(c), {});
    });
    Do("char", [this](const Case& line, const Numbers& n) {
      view.OnChar(static_cast<char32_t>(n(1)), {false, line[2] == "ctrl"});
    });
    Do("scroll", [this](const Case& line, const Numbers& n) {
      const Texts names{"line up", "line down", "page up", "page down", "thumb"};
      const auto at = std::find(names.begin(), names.end(), line[1]) - names.begin();
      view.Scroll(static_cast<HexScroll>(at), n(2));
    });
    Do("wheel", [this](const Case&, const Numbers& n) { view.OnMouseWheel(n(1)); });
    Do("go to", [this](const Case&, const Numbers& n) { view.GoTo(static_cast<std::uint32_t>(n(1))); });
    Do("dialog", [this](const Case& line, const Numbers&) {
      op.gotoAddress = [&](CGotoAddressDlg& dialog) {
        EXPECT_EQ(dialog.text, "00000");
        EXPECT_NE(line[1], "none") << "nothing to go to";
        dialog.OnChange(line[1]);
        return line[1] == "cancel" ? DialogEnd::Cancel : DialogEnd::Ok;
      };
      OnGotoAddress(view);
    });
    Shows("top", [this] { return view.geometry.TopOffset; });
    Shows("inside", [this] { return view.caret.CurrentOffset >= 0; });
    Shows("at", [this] { return view.caret.CurrentOffset; });
    Shows("area", [this] { return view.caret.CurrentArea; });
    Shows("nibble", [this] { return view.caret.Nibble; });
    Shows("cell", [this] { return view.caret.CaretX / kWidth; });
    Shows("row", [this] { return view.caret.CaretY / kHeight; });
    Shows("wide", [this] { return view.caret.Width(view.geometry) / kWidth; });
    Shows("caret", [this] { return view.CaretVisible(); });
    Shows("length", [this] { return view.DataLength(); });
    Shows("line bytes", [this] { return view.geometry.m_lpr; });
    Shows("kept", [this] { return profile.values[key]; });
    Shows("lines", [this] { return view.PreparePaint() ? HexLineCount(view) : 0; });
    Shows("paints", [this] { return view.PreparePaint(); });
    Shows("partial", [this] { return view.geometry.LastLinePartial; });
    for (const int at : {0, 1, 4, 0x1F})
      Shows(Printf("byte %X", static_cast<unsigned>(at)),
            [=, this] { return view.Data[static_cast<std::size_t>(at)]; });
    script.states["selected"] = [this] { return Printf("%d-%d", view.selection.SelStart, view.selection.SelEnd); };
    script.states["bar"] = [this] {
      const HexScrollBar bar = view.ScrollBar();
      return Printf("%d %d %d", bar.range, bar.page, bar.position) + (bar.enabled ? "" : " off");
    };
    for (const int number : {0, 1})
      script.states["line " + std::to_string(number)] = [=, this] {
        HexLine line;
        FormatHexLine(view, number, line);
        return line.address + "/" + line.hex.substr(0, 15) + "/" + line.ascii.substr(0, 5) +
               Printf("/%d-%d", line.selectedFrom, line.selectedTo);
      };
  }
  CMiniHexEditView& view = TheHexView();
  const std::string key = "Application state\\Dockbar\\-SCBar-0/m_lpr";
  Script script;
};

TEST_P(HexView, Follows) { script.Run("hex_view.tsv", GetParam()); }
INSTANTIATE_TEST_SUITE_P(Scripts, HexView,
                         ::testing::Values("lines as text", "width", "scrolling", "go to", "hit test", "another screen",
                                           "caret by keys", "typing", "selection", "other columns", "edges",
                                           "a new file"));

}  // namespace
}  // namespace pyxis::test
