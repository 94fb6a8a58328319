// The windows of Compare File, Read Chip Info and Smart Option mirror their dialogs.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOptionComboBox>
#include <QTest>

#include "pyxisfolder/folder.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

class InspectWindows : public UiBench {
 protected:
  static Texts LinesOf(const QWidget& dialog) {
    Texts lines;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) lines.push_back(label->text().toStdString());
    return lines;
  }
};

TEST_F(InspectWindows, CompareFileAgainAndAgain) {
  HoldJob("QV8348", true);
  Open();
  script.push_back([this](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Download File Information");
    auto& compare = Find<QPushButton>(dialog, "Compare File");
    auto& cancel = Find<QPushButton>(dialog, "Cancel");
    for (const char* result : {"OK", "OK", ""}) {
      script.push_back([&, result](QWidget& files) {
        EXPECT_FALSE(compare.isEnabled() || cancel.isEnabled());
        EXPECT_EQ(LinesOf(dialog)[2], "Compare Result : ");
        QTest::keyClick(&dialog, Qt::Key_Escape);  // doesn't close it meanwhile
        if (*result == '\0') {
          files.close();
          return;
        }
        auto* edit = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(QString::fromStdString(Path("samples/QV8348.hex")));
        QTest::keyClick(edit, Qt::Key_Return);
      });
      compare.click();
      EXPECT_EQ(LinesOf(dialog), (Texts{"Chip Name : QV8348", "Download File Time :2015/3/5_9:7:3",
                                        std::string("Compare Result : ") + result}));
      EXPECT_TRUE(compare.isEnabled() && cancel.isEnabled() && dialog.isVisible());
    }
    Press(dialog, "Cancel");
  });
  EXPECT_TRUE(Choose("Compare File"));
  EXPECT_TRUE(seen.empty());
}

TEST_F(InspectWindows, ReadChipInfo) {
  HoldJob("QVL04", true);
  Open();
  script.push_back([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Read CHIP Information");
    QTest::keyClick(&dialog, Qt::Key_Return);  // Read is the default
    // OptionValue without a choice.
    EXPECT_EQ(LinesOf(dialog), (Texts{"Chip Name : QVL04", "System Config : 60", "", ""}));
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_TRUE(Choose("Read Chip Info"));
}

TEST_F(InspectWindows, SmartOptionShowsTheWord) {
  Write("tin/QV8348.tin", pyxis::folder::MakeTin("QV8348"));
  HoldJob("QV8348");
  Open();
  TheAppState().conversion.SystemConfigWord = 0x1BFF;  // protection off, the second oscillator
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
