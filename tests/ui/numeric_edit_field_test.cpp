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

class NumberField : public Bench, public ::testing::WithParamInterface<std::string> {
 protected:
  NumberField() {
    field.TextEdited = [this](const std::string& text) { edited.push_back(text); };
    field.show();
    clipboard.clear();
    using C = const Case&;
    auto& on = script.actions;
    auto& shows = script.states;
    on["put"] = [this](C c) { Put(c[1]); };
    on["type"] = [this](C c) { QTest::keyClicks(&field, ui::FromText(c[1])); };
    on["key"] = [this](C c) {
      const QKeyCombination key = QKeySequence(ui::FromText(c[1]))[0];
      QTest::keyClick(&field, key.key(), key.keyboardModifiers());
    };
    on["clipboard"] = [this](C c) { c[1].empty() ? clipboard.clear() : clipboard.setText(ui::FromText(c[1])); };
    on["menu"] = [this](C c) { Menu(ui::FromText(c[1])); };
    on["value"] = [this](C c) { field.SetValue(static_cast<std::uint32_t>(c.Number(1)), c[1].starts_with("0x")); };
    on["colours"] = [this](C) {
      field.SetHexColours({1, 2, 3}, {4, 5, 6});
      field.SetDecimalColours({7, 8, 9}, {10, 11, 12});
    };
    on["show"] = [this](C c) { field.Show(c[1]); };
    on["answer each change with"] = [this](C c) {
      field.TextEdited = [this, text = c[1]](const std::string&) { field.Show(text); };
    };
    on["commit"] = [this](C c) {
      QInputMethodEvent typed;
      typed.setCommitString(ui::FromText(c[1]));
      QApplication::sendEvent(&field, &typed);
    };
    on["insert"] = [this](C c) { field.insert(ui::FromText(c[1])); };
    on["read only"] = [this](C) { field.setReadOnly(true); };
    shows["field"] = [this] { return Shown(); };
    shows["clipboard"] = [this] { return ui::ToText(clipboard.text()); };
    shows["number"] = [this] { return std::to_string(field.GetValue()); };
    shows["hex"] = [this] {
      return std::string(field.palette().text().color() == QColor(74, 115, 132) ? "yes" : "no");
    };
    shows["text"] = [this] { return ui::ToText(field.text()); };
    shows["enabled"] = [this] {
      std::string all;
      for (const std::string& row : Parts(rows, '|'))
        if (row != "-") all += row.ends_with("(grey)") ? '-' : 'y';
      return all;
    };
    shows["rows"] = [this] { return rows; };
    shows["ink"] = [this] { return field.palette().text().color().name().toStdString(); };
    shows["ground"] = [this] { return field.palette().base().color().name().toStdString(); };
    shows["told"] = [this] {
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
INSTANTIATE_TEST_SUITE_P(Scripts, NumberField, ::testing::ValuesIn(SectionsBut("number_field.tsv", {})));

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
