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

#include "data/cases.h"
#include "ui/qt_text.h"

namespace pyxis::test {
namespace {

class NumberField : public Bench, public ::testing::WithParamInterface<const char*> {
 protected:
  NumberField() {
    field.TextEdited = [this](const std::string& text) { edited.push_back(text); };
    field.show();
    clipboard.clear();
    script.actions["put"] = [this](const Case& line) { Put(line[1]); };
    script.actions["type"] = [this](const Case& line) { QTest::keyClicks(&field, ui::FromText(line[1])); };
    script.actions["key"] = [this](const Case& line) {
      const QKeyCombination key = QKeySequence(ui::FromText(line[1]))[0];
      QTest::keyClick(&field, key.key(), key.keyboardModifiers());
    };
    script.actions["clipboard"] = [this](const Case& line) {
      line[1].empty() ? clipboard.clear() : clipboard.setText(ui::FromText(line[1]));
    };
    script.actions["menu"] = [this](const Case& line) { Menu(ui::FromText(line[1])); };
    script.actions["value"] = [this](const Case& line) {
      field.SetValue(static_cast<std::uint32_t>(line.Number(1)), line[1].starts_with("0x"));
    };
    script.actions["colours"] = [this](const Case&) {
      field.SetHexColours({1, 2, 3}, {4, 5, 6});
      field.SetDecimalColours({7, 8, 9}, {10, 11, 12});
    };
    script.actions["show"] = [this](const Case& line) { field.Show(line[1]); };
    script.actions["answer each change with"] = [this](const Case& line) {
      field.TextEdited = [this, text = line[1]](const std::string&) { field.Show(text); };
    };
    script.actions["commit"] = [this](const Case& line) {
      QInputMethodEvent typed;
      typed.setCommitString(ui::FromText(line[1]));
      QApplication::sendEvent(&field, &typed);
    };
    script.actions["insert"] = [this](const Case& line) { field.insert(ui::FromText(line[1])); };
    script.actions["read only"] = [this](const Case&) { field.setReadOnly(true); };
    script.states["field"] = [this] { return Shown(); };
    script.states["clipboard"] = [this] { return ui::ToText(clipboard.text()); };
    script.states["number"] = [this] { return std::to_string(field.GetValue()); };
    script.states["hex"] = [this] {
      return std::string(field.palette().text().color() == QColor(74, 115, 132) ? "yes" : "no");
    };
    script.states["text"] = [this] { return ui::ToText(field.text()); };
    script.states["enabled"] = [this] {
      std::string all;
      for (const std::string& row : Parts(rows, '|'))
        if (row != "-") all += row.ends_with("(grey)") ? '-' : 'y';
      return all;
    };
    script.states["rows"] = [this] { return rows; };
    script.states["ink"] = [this] { return field.palette().text().color().name().toStdString(); };
    script.states["ground"] = [this] { return field.palette().base().color().name().toStdString(); };
    script.states["told"] = [this] {
      std::string all;
      for (const Texts texts[] = {op.Heard(), std::exchange(edited, {})}; const Texts& some : texts)
        for (const std::string& text : some) all += (all.empty() ? "" : " ") + text;
      return all;
    };
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
  // Opens the context menu, and chooses the row with that text.
  void Menu(const QString& choose) {
    const std::unique_ptr<QMenu> menu(field.MakeMenu());
    rows.clear();
    for (QAction* action : menu->actions()) {
      rows += (rows.empty() ? "" : "|") + (action->isSeparator() ? "-" : ui::ToText(action->text())) +
              (action->isEnabled() || action->isSeparator() ? "" : " (grey)");
      if (!choose.isEmpty() && action->text() == choose) action->trigger();
    }
  }

  ui::NumericEditField field{8, nullptr};
  QClipboard& clipboard = *QApplication::clipboard();
  Texts edited;
  std::string rows;
  Script script;
};

TEST_P(NumberField, Follows) { script.Run("number_field.tsv", GetParam()); }
INSTANTIATE_TEST_SUITE_P(Scripts, NumberField,
                         ::testing::Values("keys ask the rules", "colours", "show", "clipboard", "undo", "menu",
                                           "typed", "pasted", "removed", "greying", "radix",
                                           "nothing comes past the rules"));

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
  EXPECT_EQ(All(first, window.focusWidget()), All("&Undo", &field));
  field.setParent(nullptr);
}

}  // namespace
}  // namespace pyxis::test
