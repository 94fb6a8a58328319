// The number field under the operator's keys, clipboard and menu.
#include "ui/numeric_edit_field.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <memory>

#include "support/bench.h"
#include "ui/qt_text.h"

namespace pyxis::test {
namespace {

class NumberField : public Bench {
 protected:
  NumberField() {
    field.TextEdited = [this](const std::string& text) { edited.push_back(text); };
    field.show();
    clipboard.clear();
  }

  // Written with its selection in brackets, or a bar for the caret: "0x[12]4", "1F|".
  void Put(const std::string& shown) {
    const std::size_t start = shown.find_first_of("[|"), end = shown.find(']');
    std::string text = shown;
    std::erase_if(text, [](char c) { return c == '[' || c == ']' || c == '|'; });
    field.Show(text);
    field.setCursorPosition(static_cast<int>(start));
    if (end != std::string::npos) field.setSelection(static_cast<int>(start), static_cast<int>(end - start - 1));
  }
  std::string Shown() const {
    std::string text = ui::ToText(field.text());
    if (!field.hasSelectedText()) return text.insert(static_cast<std::size_t>(field.cursorPosition()), "|");
    return text.insert(static_cast<std::size_t>(field.selectionEnd()), "]")
        .insert(static_cast<std::size_t>(field.selectionStart()), "[");
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&field, key, modifiers); }
  void Ctrl(Qt::Key key) { Key(key, Qt::ControlModifier); }
  // The rows of the context menu; the one with that text is chosen.
  std::string Menu(const QString& choose = {}) {
    const std::unique_ptr<QMenu> menu(field.MakeMenu());
    QStringList rows;
    for (QAction* action : menu->actions()) {
      rows << (action->isSeparator() ? QStringLiteral("-") : action->text() + (action->isEnabled() ? "" : " (grey)"));
      if (!choose.isEmpty() && action->text() == choose) action->trigger();
    }
    return ui::ToText(rows.join(QLatin1Char('|')));
  }

  ui::NumericEditField field{8, nullptr};
  QClipboard& clipboard = *QApplication::clipboard();
  Texts edited;
};

TEST_F(NumberField, KeysAskTheRules) {
  using Keys = std::function<void()>;
  const auto type = [&](const char* text) -> Keys { return [=, this] { QTest::keyClicks(&field, text); }; };
  const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) -> Keys {
    return [=, this] { Key(pressed, modifiers); };
  };
  // clang-format off
  for (const auto& [before, keys, after] : Table<const char*, Keys, const char*>{
           {"|", type("0X1f g-"), "0x1F|"}, {"[12]34", type("b"), "B|34"}, {"0|x1", type("5"), "0|x1"},
           {"1234567|", type("89"), "12345678|"}, {"0|x1", key(Qt::Key_Backspace), "0|x1"},
           {"0x|1", key(Qt::Key_Backspace), "0|1"}, {"[0x]1", key(Qt::Key_Backspace), "|1"},
           {"|0x1", key(Qt::Key_Delete), "|0x1"}, {"0|x1", key(Qt::Key_Delete), "0|1"}, {"1|23", key(Qt::Key_Delete), "1|3"},
           {"[0]x1", key(Qt::Key_X, Qt::ControlModifier), "[0]x1"}, {"[0]x1", key(Qt::Key_Delete, Qt::ShiftModifier), "[0]x1"},
           {"[12]3", key(Qt::Key_X, Qt::ControlModifier), "|3"}, {"0|x12", key(Qt::Key_Backspace, Qt::ControlModifier), "0|x12"},
           {"12|34", key(Qt::Key_K, Qt::ControlModifier), "12|34"}, {"12|34", key(Qt::Key_Home), "|1234"},
           {"12|34", key(Qt::Key_End, Qt::ShiftModifier), "12[34]"}, {"12|", key(Qt::Key_A, Qt::ControlModifier), "[12]"}}) {
    // clang-format on
    Put(before);
    keys();
    EXPECT_EQ(Shown(), after) << before;
  }
}

TEST_F(NumberField, HexModeShowsInTheColoursAndTextEditedTells) {
  const auto colours = [&] { return std::pair(field.palette().text().color(), field.palette().base().color()); };
  const std::pair decimal(QColor(192, 97, 10), QColor(251, 244, 170)), hex(QColor(74, 115, 132), QColor(219, 247, 220));
  EXPECT_EQ(colours(), decimal);
  QTest::keyClicks(&field, "1gf");
  EXPECT_EQ(colours(), hex);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(colours(), decimal);
  EXPECT_EQ(edited, (Texts{"1", "1F", "1"}));
  field.SetValue(0xAB, true);
  EXPECT_EQ(All(field.text(), field.GetValue(), edited.size()), All(QString("0xab"), 0xABU, std::size_t{3}));
  EXPECT_EQ(colours(), hex);
  field.SetHexColours({1, 2, 3}, {4, 5, 6});
  EXPECT_EQ(colours(), std::pair(QColor(1, 2, 3), QColor(4, 5, 6)));
  field.SetDecimalColours({7, 8, 9}, {10, 11, 12});
  field.SetValue(3, false);
  EXPECT_EQ(colours(), std::pair(QColor(7, 8, 9), QColor(10, 11, 12)));
}

// A window puts its own text back while it hears of the change.
TEST_F(NumberField, ShowKeepsTheCaretAlsoInsideAChange) {
  Put("12|34");
  field.Show("5678");
  EXPECT_EQ(Shown(), "56|78");
  field.TextEdited = [&](const std::string&) { field.Show("1"); };
  QTest::keyClicks(&field, "9");
  EXPECT_EQ(Shown(), "1|");
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Shown(), "|1");
}

TEST_F(NumberField, ClipboardKeys) {
  // clang-format off
  for (const auto& [before, held, after] : Table<const char*, const char*, const char*>{
           {"1|", "ab", "1ab|"}, {"1|", "23 4", "1|"}, {"0|x1", "2", "0|x1"}, {"123|", "456789", "123|"},
           {"[0x]1", "0X2", "0X2|1"}}) {
    // clang-format on
    Put(before);
    clipboard.setText(held);
    Ctrl(Qt::Key_V);
    EXPECT_EQ(Shown(), after) << before;
  }
  Put("12[34]");
  Ctrl(Qt::Key_C);
  EXPECT_EQ(clipboard.text(), "34");
  Put("[12]34");
  Ctrl(Qt::Key_X);
  EXPECT_EQ(clipboard.text(), "12");
  EXPECT_EQ(op.told, std::vector<Told>{});
  clipboard.clear();  // this platform then answers that there is none
  Ctrl(Qt::Key_V);
  EXPECT_EQ(op.told, (std::vector<Told>{{"Cannot open clipboard!", "Message", MessageIcon::Warning}}));
  EXPECT_EQ(Shown(), "|34");
}

TEST_F(NumberField, UndoAndRedo) {
  Put("0x|");
  QTest::keyClicks(&field, "12");
  Ctrl(Qt::Key_Z);
  EXPECT_EQ(Shown(), "0x|");
  Ctrl(Qt::Key_Z);
  EXPECT_EQ(Shown(), "0x|");
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Shown(), "0x12|");
}

TEST_F(NumberField, TheMenuGreysAndActs) {
  EXPECT_EQ(Menu(),
            "&Undo (grey)|-|Cu&t (grey)|&Copy (grey)|&Paste (grey)|&Delete (grey)|-|Select &All (grey)|-|"
            "Con&vert (grey)");
  // Normalised before each of the first five, whatever it holds: letters capital, x small.
  const QString held = QString::fromUtf8("0Xab \u00E4");
  const QString normal = QString::fromUtf8("0xAB \u00C4");
  // clang-format off
  for (const auto& [before, choose, after, clip] : Table<const char*, const char*, const char*, QString>{
           {"1[23]", "Cu&t", "1|", "23"}, {"1[23]", "&Copy", "1[23]", "23"}, {"1[23]", "&Delete", "1|", normal},
           {"1[23]", "Select &All", "[123]", held}, {"16|", "Con&vert", "0x10|", held}, {"12345678|", "Con&vert", "0xBC614E|", held},
           {"FFFFFFFFF|", "Con&vert", "FFFFFFFFF|", held}, {"[0]x1", "Cu&t", "[0]x1", held}}) {
    // clang-format on
    Put(before);
    clipboard.setText(held);
    Menu(choose);
    EXPECT_EQ(Shown(), after) << before << choose;
    EXPECT_EQ(clipboard.text(), clip) << before << choose;
  }
  Put("[99]");
  clipboard.setText("0Xfe");
  EXPECT_EQ(Menu("&Paste"), "&Undo (grey)|-|Cu&t|&Copy|&Paste|&Delete|-|Select &All (grey)|-|Con&vert");
  EXPECT_EQ(Shown(), "0xFE|");
  clipboard.setText("say x");
  Menu("&Undo");
  EXPECT_EQ(field.text(), "99");
  EXPECT_EQ(clipboard.text(), "SAY x");
}

TEST_F(NumberField, RightClickTakesTheFocusAndOpensTheMenu) {
  QWidget window;
  QLineEdit other(&window);
  field.setParent(&window);
  other.setFocus();
  QString first;
  QTimer::singleShot(0, &field, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    first = menu->actions().front()->text();
    menu->close();
  });
  QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, field.mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(&field, &event);
  EXPECT_EQ(first, "&Undo");
  EXPECT_EQ(window.focusWidget(), &field);
  field.setParent(nullptr);
}

TEST_F(NumberField, NothingComesPastTheRules) {
  Put("0|x1");
  QInputMethodEvent typed;
  typed.setCommitString("5g");
  QApplication::sendEvent(&field, &typed);
  EXPECT_EQ(Shown(), "0|x1");
  Put("1|");
  QApplication::sendEvent(&field, &typed);
  EXPECT_EQ(Shown(), "15|");
  field.insert("x2");  // as an accessibility tool
  EXPECT_EQ(Shown(), "15|");
  field.setReadOnly(true);
  for (const auto key : {Qt::Key_1, Qt::Key_Backspace}) Key(key);
  Ctrl(Qt::Key_V);
  EXPECT_EQ(field.text(), "15");
}

}  // namespace
}  // namespace pyxis::test
