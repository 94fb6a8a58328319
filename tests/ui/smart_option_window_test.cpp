// The Smart Option window: what it says, and that it can be read.
#include "ui/smart_option_window.h"

#include <QApplication>
#include <QComboBox>
#include <QStyleOptionComboBox>
#include <QTest>

#include "catalogue/chip_catalogue.h"
#include "options/smart_option.h"
#include "options/smart_option_dlg.h"
#include "options/tin_file.h"
#include "platform/machine.h"
#include "pyxisfolder/folder.h"
#include "shell/app_state.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

class SmartOptionWindowTest : public UiBench {
 protected:
  ~SmartOptionWindowTest() override { QApplication::setPalette(light_); }
  void PutTin(const std::string& chip) { Write("tin/" + chip + ".tin", pyxis::folder::MakeTin(chip)); }
  void MakeDark() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 45));
    dark.setColor(QPalette::Button, QColor(60, 60, 60));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
      dark.setColor(role, QColor(230, 230, 230));
      dark.setColor(QPalette::Disabled, role, QColor(75, 75, 75));
    }
    QApplication::setPalette(dark);
  }

 private:
  QPalette light_ = QApplication::palette();
};

// The colour of a caption's ink: of its pixels the one that is farthest from the background.
QColor InkOf(const QImage& image, const OptionRect& cell) {
  const QColor ground = image.pixelColor(0, 0);
  const auto distance = [&](const QColor& c) {
    return std::abs(c.red() - ground.red()) + std::abs(c.green() - ground.green()) + std::abs(c.blue() - ground.blue());
  };
  QColor ink = ground;
  for (int y = cell.y; y < cell.y + cell.height; ++y)
    for (int x = cell.x; x < cell.x + cell.width; ++x)
      if (distance(image.pixelColor(x, y)) > distance(ink)) ink = image.pixelColor(x, y);
  return ink;
}

TEST_F(SmartOptionWindowTest, TheButtonShowsTheWord) {
  PutTin("QV8348");
  TheMachine().op = &op;
  LoadSample("QV8348");
  TheMachine().op = &qtOp;
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
        EXPECT_FALSE(lists[i]->isEnabled());
        EXPECT_TRUE(lists[i]->isVisible());
      }
      EXPECT_EQ(lists[2]->count(), 4);
      EXPECT_EQ(lists[2]->accessibleName(), "03. Oscillator");
      QTest::keyClick(&dialog, end);
    });
    Press(*window, "Smart Option");
    EXPECT_TRUE(script.empty());
  }
}

TEST_F(SmartOptionWindowTest, EveryAlternativeOfEveryIcHasRoom) {
  AllocateSmartOptionBuffer();
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& chip : ChipList(list)) {
      if (!chip.HasSmartOption) continue;
      SCOPED_TRACE(chip.TypeLabel);
      PutTin(chip.ChipName);
      ReadTinFile(Path("tin/" + std::string(chip.ChipName) + ".tin"));
      CSmartOptionDlg dialog;
      ui::SmartOptionWindow shown(dialog, nullptr);
      int bottom = 0;
      for (const QComboBox* box : shown.findChildren<QComboBox*>()) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        const QRect field =
            box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box);
        for (int i = 0; i < box->count(); ++i)
          EXPECT_LE(box->fontMetrics().horizontalAdvance(box->itemText(i)), field.width() - 2);
        EXPECT_GE(field.height(), box->fontMetrics().height());
        EXPECT_GE(box->y(), bottom);
        bottom = box->geometry().bottom();
        EXPECT_TRUE(shown.rect().contains(box->geometry()));
      }
    }
}

TEST_F(SmartOptionWindowTest, CaptionsTellWhoSetsARow) {
  AllocateSmartOptionBuffer();
  PutTin("QV8348");
  ReadTinFile(Path("tin/QV8348.tin"));
  for (const bool dark : {false, true}) {
    if (dark) MakeDark();
    CSmartOptionDlg dialog;
    ui::SmartOptionWindow shown(dialog, nullptr);
    const QImage image = shown.grab().toImage();
    const int ground = image.pixelColor(0, 0).lightness();
    const QColor byProgram = InkOf(image, dialog.rows[0].caption);
    const QColor byBoard = InkOf(image, dialog.rows[4].caption);
    EXPECT_GT(byProgram.blue() - byProgram.red(), 100);
    EXPECT_LT(std::abs(byBoard.blue() - byBoard.red()), 30);
    for (const QColor& ink : {byProgram, byBoard}) EXPECT_GT(std::abs(ink.lightness() - ground), 90);
    const QPalette palette = shown.findChild<QComboBox*>()->palette();
    EXPECT_GT(std::abs(palette.color(QPalette::Disabled, QPalette::ButtonText).lightness() -
                       palette.color(QPalette::Disabled, QPalette::Button).lightness()),
              90);
  }
}

}  // namespace
}  // namespace pyxis::test
