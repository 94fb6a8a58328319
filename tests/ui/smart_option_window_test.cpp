// The Smart Option window: what it says, and that it can be read.
#include "ui/smart_option_window.h"

#include <QComboBox>
#include <QStyleOptionComboBox>
#include <QTest>

#include "catalogue/chip_catalogue.h"
#include "options/smart_option.h"
#include "options/smart_option_dlg.h"
#include "options/tin_file.h"
#include "pyxisfolder/folder.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

class SmartOptionWindowTest : public UiBench {
 protected:
  void PutTin(const std::string& chip) { Write("tin/" + chip + ".tin", pyxis::folder::MakeTin(chip)); }
};

TEST_F(SmartOptionWindowTest, TheButtonShowsTheWord) {
  PutTin("QV8348");
  HoldJob("QV8348");
  Open();
  TheAppState().SystemConfigWord = 0x1BFF;  // protection off, the second oscillator
  const QStringList expected{"Not protected", "Whole memory", "Low-speed crystal", "4.0 V",
                             "Enabled",       "Reset input",  "4 clocks a cycle"};
  for (const auto end : {Qt::Key_Escape, Qt::Key_Return}) {
    script.push_back([&](QWidget& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Smart Option [ System config : 1BFF ]");
      const auto lists = dialog.findChildren<QComboBox*>();
      ASSERT_EQ(lists.size(), expected.size());
      for (qsizetype i = 0; i < lists.size(); ++i) {
        EXPECT_EQ(lists[i]->currentText().toStdString(), expected[i].toStdString());
        EXPECT_TRUE(lists[i]->isVisible() && !lists[i]->isEnabled());
        QStyleOptionComboBox option;
        option.initFrom(lists[i]);
        const QRect field =
            lists[i]->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, lists[i]);
        for (int row = 0; row < lists[i]->count(); ++row)
          EXPECT_LE(lists[i]->fontMetrics().horizontalAdvance(lists[i]->itemText(row)), field.width() - 2);
        const auto ink = [&](auto group) { return lists[i]->palette().color(group, QPalette::ButtonText); };
        EXPECT_EQ(ink(QPalette::Disabled), ink(QPalette::Active));  // there to be read
      }
      EXPECT_EQ(lists[2]->count(), 4);
      EXPECT_EQ(lists[2]->accessibleName(), "03. Oscillator");
      QTest::keyClick(&dialog, end);
    });
    Press(*window, "Smart Option");
    EXPECT_TRUE(script.empty());
  }
}

}  // namespace
}  // namespace pyxis::test
