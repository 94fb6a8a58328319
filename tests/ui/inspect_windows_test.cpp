// The windows of Compare File and Read Chip Info mirror their dialogs.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

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
      // Fires in the file dialog's loop; the bench's own script waits for the end of this step.
      QTimer::singleShot(0, &dialog, [&, result] {
        QWidget& files = *QApplication::activeModalWidget();
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

}  // namespace
}  // namespace pyxis::test
