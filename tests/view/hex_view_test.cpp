// The hex view's model: offsets, columns, scrolling, caret, hit test, selection, typing.
#include "view/hex_view.h"

#include "support/bench.h"
#include "view/goto_address.h"
#include "view/hex_picture.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

constexpr int kWidth = 8, kHeight = 16;  // of a character
constexpr char kProfile[] = "Application state\\Dockbar\\-SCBar-0/m_lpr";

class HexView : public Bench {
 protected:
  HexView() { ConfigureHexView(); }
  // A window of that many bytes a line and lines, with a buffer that counts up.
  void Open(std::size_t size, int lineBytes = 16, int lines = 10) {
    view.Measure(kWidth, kHeight);
    view.OnSize((9 + 4 * lineBytes) * kWidth, lines * kHeight, true);
    auto data = view.SetSize(size);
    for (std::size_t i = 0; i < size; ++i) data[i] = static_cast<std::uint8_t>(i);
    view.PreparePaint();
  }
  void Click(int cell, int row, bool shift = false) {
    view.OnLButtonDown(cell * kWidth + 2, row * kHeight + 3, shift);
  }
  void Type(const char* text) {
    for (; *text != '\0'; ++text) view.OnChar(static_cast<char32_t>(*text), {});
  }
  HexLine Line(int number) {
    HexLine line;
    FormatHexLine(view, number, line);
    return line;
  }
  std::pair<int, int> Selected() const { return {view.selection.SelStart, view.selection.SelEnd}; }
  CMiniHexEditView& view = TheHexView();
};

TEST_F(HexView, LinesAsText) {
  Write("five", Bytes{'A', 0x7E, 0x7F, 0x1F, 0xFF});
  Open(0);
  ShowFile(Path("five"));
  ASSERT_TRUE(view.PreparePaint());
  EXPECT_EQ(All(HexLineCount(view), Line(0).address, Line(0).hex), All(1, "00000000", "41 7E 7F 1F FF "));
  EXPECT_EQ(Line(0).ascii, "A~...");
  EXPECT_TRUE(view.geometry.LastLinePartial);

  ShowFile(Path("nowhere"));
  EXPECT_EQ(view.DataLength(), 5);
  ShowFile("");
  EXPECT_FALSE(view.PreparePaint());
  EXPECT_EQ(All(HexLineCount(view), view.DataLength()), All(0, 5));

  view.SetOptions(true, true, false, false, 2);
  Open(0x12345);
  view.GoTo(0x1FFF);
  EXPECT_EQ(Line(0).address, "1FFF");
  EXPECT_EQ(Line(1).address, "2015");  // (73 - 5) / 3 bytes a line
  EXPECT_EQ(All(Line(0).hex.substr(0, 6), Line(0).ascii), All("FF 00 ", ""));
}

TEST_F(HexView, WidthGivesTheLineLengthAndTheProfileKeepsIt) {
  view.Measure(kWidth, kHeight);
  // clang-format off
  for (const auto& [width, lineBytes] : Table<int, std::uint32_t>{
           {(9 + 64) * kWidth, 16}, {(9 + 64) * kWidth - 1, 15}, {(9 + 67) * kWidth, 16}, {20, 1}, {0, 1}}) {
    // clang-format on
    view.OnSize(width, 160, true);
    EXPECT_EQ(view.geometry.m_lpr, lineBytes) << width;
    EXPECT_EQ(profile.values[kProfile], static_cast<int>(lineBytes));
  }
  view.OnSize(1000, 160, false);
  EXPECT_EQ(view.geometry.m_lpr, 1U);
  profile.values[kProfile] = 12;
  view.SetSize(100);
  EXPECT_EQ(view.geometry.m_lpr, 12U);
  for (const int odd : {-7, 0x7FFFFFFF}) {
    profile.values[kProfile] = odd;
    view.SetSize(100);
    EXPECT_EQ(view.geometry.m_lpr, odd < 0 ? 1U : 4096U);
  }
}

TEST_F(HexView, Scrolling) {
  Open(0x200);
  // The last page begins at 0x160.
  // clang-format off
  for (const auto& [code, position, top] : Table<HexScroll, int, int>{
           {HexScroll::LineUp, 0, 0}, {HexScroll::LineDown, 0, 0x10}, {HexScroll::PageDown, 0, 0xB0},
           {HexScroll::PageDown, 0, 0x150}, {HexScroll::PageDown, 0, 0x160}, {HexScroll::LineDown, 0, 0x160},
           {HexScroll::PageUp, 0, 0xC0}, {HexScroll::ThumbTrack, 3, 0x30}, {HexScroll::PageUp, 0, 0},
           {HexScroll::ThumbTrack, 999, 0x1F0}}) {
    // clang-format on
    view.Scroll(code, position);
    EXPECT_EQ(All(view.geometry.TopOffset, view.caret.CurrentOffset), All(top, top));
  }
  const HexScrollBar bar = view.ScrollBar();
  EXPECT_EQ((std::vector{bar.range, bar.page, bar.position}), (std::vector{0x20, 10, 0x1F}));
  EXPECT_TRUE(bar.enabled);
  Open(0xA0);
  EXPECT_FALSE(view.ScrollBar().enabled);

  Open(0x200);
  view.geometry.TopOffset = 5;
  view.Scroll(HexScroll::LineUp);
  EXPECT_EQ(view.geometry.TopOffset, 0);
  view.caret.CurrentOffset = 7;
  for (const auto& [delta, top] :
       {std::pair{-120, 0x20}, {-60, 0x30}, {59, 0x30}, {120, 0x10}, {1200, 0}, {-60000, 0x160}}) {
    view.OnMouseWheel(delta);
    EXPECT_EQ(view.geometry.TopOffset, top) << delta;
    EXPECT_EQ(view.caret.CurrentOffset, 7);
  }
}

TEST_F(HexView, GoTo) {
  Open(0x100);
  for (const auto& [text, top] : {std::pair{"12345", 0x60}, {"0003", 3}, {"zz", 0}, {"fF", 0xFF}}) {
    op.gotoAddress = [&, typed = text](CGotoAddressDlg& dialog) {
      EXPECT_EQ(dialog.text, "00000");
      dialog.OnChange(typed);
      return DialogEnd::Ok;
    };
    OnGotoAddress(view);
    EXPECT_EQ(view.geometry.TopOffset, top) << text;
  }
  op.gotoAddress = nullptr;  // Cancel
  view.OnDragStart();
  OnGotoAddress(view);
  EXPECT_FALSE(view.selection.Exists());
  EXPECT_EQ(view.geometry.TopOffset, 0xFF);
  op.gotoAddress = [](CGotoAddressDlg&) { return ADD_FAILURE() << "nothing to go to", DialogEnd::Ok; };
  view.Blanked = true;
  OnGotoAddress(view);
  Open(0);
  OnGotoAddress(view);
  Open(0x50);
  view.GoTo(0x51);
  EXPECT_EQ(view.geometry.TopOffset, 0);
}

// Cells from 0: 0 to 7 address, 9 to 56 hexadecimal, 57 to 72 ASCII.
TEST_F(HexView, HitTest) {
  Open(0x100);
  // Among them the blanks behind the address and behind a byte; the last one of a line counts to the ASCII column.
  // clang-format off
  for (const auto& [cell, row, area, offset, nibble, caretCell] : Table<int, int, int, int, int, int>{
           {0, 1, kAddressArea, 0x10, 0, 0}, {7, 2, kAddressArea, 0x20, 0, 0}, {8, 0, kHexArea, 0, 2, 9},
           {9, 0, kHexArea, 0, 2, 9}, {10, 0, kHexArea, 0, 1, 10}, {11, 3, kHexArea, 0x31, 2, 12},
           {54, 0, kHexArea, 15, 2, 54}, {55, 0, kHexArea, 15, 1, 55}, {57, 1, kAsciiArea, 0x10, 0, 57},
           {72, 9, kAsciiArea, 0x9F, 0, 72}, {56, 1, kAsciiArea, 0x0F, 0, 57}, {56, 0, kAsciiArea, 0, 0, 57}}) {
    // clang-format on
    view.caret.CurrentArea = -1;
    Click(cell, row);
    EXPECT_EQ(view.caret.CurrentArea, area) << cell;
    EXPECT_EQ(view.caret.CurrentOffset, offset) << cell;
    EXPECT_EQ(area == kHexArea ? view.caret.Nibble : 0, nibble) << cell;
    EXPECT_EQ(view.caret.CaretX, caretCell * kWidth) << cell;
    EXPECT_EQ(All(view.caret.CaretY, view.caret.Width(view.geometry)), All(row * kHeight, (area == kAddressArea ? 8 : 1) * kWidth));
  }
  Click(9, 0);
  for (const auto& [cell, row] : {std::pair{73, 0}, {9, 11}, {90, 2}}) {
    Click(cell, row);
    EXPECT_EQ(view.caret.CurrentOffset, 0) << cell << " " << row;
  }
  view.Measure(2 * kWidth, kHeight);  // another screen: the columns stand where they stood until the next paint
  view.geometry.ShowAddress = false;
  for (int cell = 0; cell < 80; ++cell) {
    Click(cell, 0);
    EXPECT_GE(view.caret.CurrentOffset, 0);
  }
  ConfigureHexView();
  Open(5);
  Click(9 + 3 * 9, 0);  // behind the data: the last byte
  EXPECT_EQ(view.caret.CurrentOffset, 4);
  Type("1");
  EXPECT_EQ(view.Data[4], 0x14);
}

TEST_F(HexView, CaretByKeys) {
  Open(0x100);
  const auto key = [&](HexKey k, bool control = false) { view.OnKeyDown(k, {false, control}); };
  Click(9, 0);
  // clang-format off
  for (const auto& [pressed, control, offset, nibble] : Table<HexKey, bool, int, int>{
           {HexKey::Left, false, 0, 2}, {HexKey::Right, false, 0, 1}, {HexKey::Right, false, 1, 2},
           {HexKey::Left, false, 0, 1}, {HexKey::Down, false, 0x10, 1}, {HexKey::Up, false, 0, 1},
           {HexKey::Up, false, 0, 2}, {HexKey::End, false, 15, 2}, {HexKey::Right, false, 15, 1},
           {HexKey::Right, false, 16, 2}, {HexKey::Home, false, 16, 2}, {HexKey::End, true, 0xFF, 2},
           {HexKey::Down, false, 0xFF, 1}, {HexKey::Right, false, 0xFF, 1}, {HexKey::Home, false, 0xF0, 2},
           {HexKey::Home, true, 0, 2}}) {
    // clang-format on
    key(pressed, control);
    EXPECT_EQ(All(view.caret.CurrentOffset, view.caret.Nibble), All(offset, nibble));
  }
  key(HexKey::End, true);
  EXPECT_EQ(All(view.geometry.TopOffset, view.caret.CaretY), All(0x60, 9 * kHeight));
  key(HexKey::Home, true);
  for (int i = 0; i < 10; ++i) key(HexKey::Down);
  EXPECT_EQ(All(view.geometry.TopOffset, view.caret.CurrentOffset), All(0x10, 0xA0));
  EXPECT_TRUE(view.CaretVisible());
  key(HexKey::PageDown);  // the caret stays at its byte, and the view comes a line back to it
  EXPECT_EQ(All(view.caret.CurrentOffset, view.geometry.TopOffset), All(0xA0, 0x60));
  view.OnMouseWheel(60000);
  EXPECT_FALSE(view.CaretVisible());
  Click(3, 0);
  key(HexKey::Right);
  EXPECT_EQ(view.caret.CurrentOffset, 0);
}

TEST_F(HexView, Typing) {
  Open(0x20);
  Click(9, 0);
  Type("aBg5");
  EXPECT_EQ(All(view.Data[0], view.Data[1], view.caret.CurrentOffset), All(0xAB, 0x51, 1));
  view.OnKeyDown(HexKey::End, {false, true});
  Type("12");
  EXPECT_EQ(All(view.Data[0x1F], view.caret.Nibble), All(0x12, 1));
  Type("3");
  EXPECT_EQ(view.Data[0x1F], 0x13);
  Click(57, 0);
  Type("A\t\b");
  view.OnChar(U'\u4E0B', {});
  view.OnChar(3, {false, true});
  EXPECT_EQ(All(view.Data[0], view.Data[1], view.caret.CurrentOffset), All('A', 0x51, 1));
  Click(2, 0);
  const Bytes before = view.Data;
  Type("FF");
  EXPECT_EQ(view.Data, before);
}

TEST_F(HexView, Selection) {
  Open(0x40);
  Click(12, 0);
  view.OnDragStart();
  view.OnMouseMove((12 + 3 * 2) * kWidth, 5);  // two bytes on
  EXPECT_EQ(Selected(), std::pair(1, 4));
  EXPECT_EQ(All(std::pair(Line(0).selectedFrom, Line(0).selectedTo), Line(1).selectedTo), All(std::pair(1, 4), 0));
  view.OnMouseMove(12 * kWidth, 16 * kHeight);  // below: a line down when there is one
  EXPECT_EQ(view.selection.SelEnd, 4);

  view.OnChar(24, {false, true});
  EXPECT_EQ(All(view.DataLength(), view.Data[1]), All(0x3D, 4));
  EXPECT_FALSE(view.selection.Exists());
  view.OnChar(24, {false, true});
  EXPECT_EQ(view.DataLength(), 0x3D);

  Click(9, 0);
  view.OnKeyDown(HexKey::Right, {true, false});
  view.OnKeyDown(HexKey::Right, {true, false});
  EXPECT_EQ(Selected(), std::pair(0, 2));
  view.OnKeyDown(HexKey::Down, {true, false});
  EXPECT_EQ(view.selection.SelEnd, 0x12);
  view.OnKeyDown(HexKey::Left, {});
  EXPECT_FALSE(view.selection.Exists());
  Click(9, 0);
  Click(9 + 3 * 4, 1, true);
  EXPECT_EQ(Selected(), std::pair(0, 0x15));
  Type("1");
  EXPECT_FALSE(view.selection.Exists());

  Click(9, 0);  // all of it away
  view.OnKeyDown(HexKey::End, {true, true});
  view.selection.SelEnd = view.DataLength();
  view.OnChar(24, {false, true});
  EXPECT_EQ(view.DataLength(), 0);
  EXPECT_FALSE(view.PreparePaint());
  Click(9, 0);
  view.OnKeyDown(HexKey::Down, {});
  Type("1");
  EXPECT_EQ(view.caret.CurrentOffset, 0);
}

TEST_F(HexView, ANewFileKeepsTheCaretInside) {
  Open(0x200);
  view.OnKeyDown(HexKey::End, {false, true});
  view.SetSize(0x100);
  EXPECT_EQ(All(view.caret.CurrentOffset, view.geometry.TopOffset), All(0, 0));
  view.caret.CurrentOffset = 0x80;
  view.SetSize(0x81);
  EXPECT_EQ(view.caret.CurrentOffset, 0x80);
}

}  // namespace
}  // namespace pyxis::test
