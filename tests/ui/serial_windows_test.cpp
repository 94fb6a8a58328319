// The serial number windows by keyboard, down to the serial in the chip.
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "serial/sn_record.h"
#include "ui/numeric_edit_field.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

class SerialWindows : public UiBench {
 protected:
  // A field by the label in front of it.
  static ui::NumericEditField& Field(QWidget& within, const QString& label) {
    for (const QLabel* candidate : within.findChildren<QLabel*>())
      if (candidate->text().remove(QLatin1Char('&')) == label)
        return dynamic_cast<ui::NumericEditField&>(*candidate->buddy());
    throw std::runtime_error("no field " + label.toStdString());
  }

  static void Type(QWidget& dialog, const QString& label, const QString& text) {
    auto& field = Field(dialog, label);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
  }

  // Fills Serial Number Set and presses Enter.
  void ScriptSet(const QString& start, const QString& amount) {
    script.push_back([=](QWidget& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Serial Number Set");
      Type(dialog, "S/N Length [Hex]:", "2");
      EXPECT_EQ(Field(dialog, "Start Serial NO (Hex) : ").text(), "0000");
      Type(dialog, "S/N Start Address (Hex) :", "3fa");
      Type(dialog, "Start Serial NO (Hex) : ", start + "5");  // a digit too many
      EXPECT_EQ(Field(dialog, "Start Serial NO (Hex) : ").text(), start);
      Type(dialog, "S/N Amount (Hex) : ", amount);
      QTest::keyClick(&Find(dialog, "Hight Byte"), Qt::Key_Space);
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  }

  // What lies in the chip at word 0x3FA, where the most significant byte went in last.
  int Burnt() const { return writer.chip.burnt.at(2 * 0x3FB + 1) * 256 + writer.chip.burnt.at(2 * 0x3FA + 1); }
  void NextChip() { writer.chip = standin::Chip{}; }
};

// Clicks the button while a task runs.
class ClickingClock : public FakeClock {
 public:
  QWidget* button = nullptr;
  std::uint32_t TickCount() override {
    if (QWidget* target = std::exchange(button, nullptr)) PostClick(*target);
    return FakeClock::TickCount();
  }
};

TEST_F(SerialWindows, TheMenuRoadByKeys) {
  HoldJob("QV8348");
  Open();
  ClickingClock clicking;
  TheMachine().clock = &clicking;
  script.push_back([&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Serial Number Program");
    QWidget& program = Find(dialog, "S/N Program");
    EXPECT_FALSE(program.isEnabled());
    QTest::keyClick(&dialog, Qt::Key_Return);  // nothing to press
    EXPECT_EQ(Field(dialog, "Total (Hex) : ").text(), "0");
    ScriptSet("12FF", "2");
    QTest::keyClick(&Find(dialog, "S/N SET"), Qt::Key_Space);
    ASSERT_TRUE(program.isEnabled());
    EXPECT_EQ(Field(dialog, "End Serial NO[Hex] : ").text(), "1300");
    EXPECT_EQ(Field(dialog, "S/N End Address[Hex] : ").text(), "03FB");
    NextChip();
    clicking.button = &program;
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Burnt(), 0x12FF);
    EXPECT_EQ(Field(dialog, "Total (Hex) : ").text(), "1");  // the click meanwhile is no press
    EXPECT_EQ(Field(dialog, "Start Serial NO[Hex] : ").text(), "1300");
    NextChip();
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(Burnt(), 0x1300);
    EXPECT_FALSE(program.isEnabled());
    QTest::keyClick(&Find(dialog, "Reset Count"), Qt::Key_Space);
    EXPECT_EQ(Field(dialog, "OK (Hex) : ").text(), "0");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_TRUE(Choose("Serial Number Program"));
  EXPECT_EQ(seen, Texts{"Serial Number Program Complete"});
  EXPECT_EQ(TheSnRecord().SnLength, 16);
  TheMachine().clock = &clock;
}

TEST_F(SerialWindows, TheRoadThroughIcSelection) {
  const std::string sample = Path(PutFolderFor("QV8348"));
  Open();
  TheAppState().writer.WriterModel = Model::Km48;
  ScriptIc("MCU: 8 Bit QV83 Series", "QV8348", "Display Serial Number");
  ScriptSet("00AB", "1");
  EXPECT_TRUE(Choose("&Device"));
  EXPECT_EQ(TheAppState().selection.SnMode, 1U);

  ScriptFile(sample);
  EXPECT_TRUE(Choose("&Load File"));
  QWidget* shown = nullptr;
  for (QWidget* widget : QApplication::topLevelWidgets())
    if (widget->windowTitle() == "Serial Number Program" && widget->isVisible()) shown = widget;
  ASSERT_NE(shown, nullptr);
  EXPECT_FALSE(shown->isModal() || Find(*shown, "S/N SET").isEnabled());
  EXPECT_FALSE(Find(*window, "Auto").isEnabled());
  NextChip();
  QTest::keyClick(shown, Qt::Key_Return);
  EXPECT_EQ(Burnt(), 0x00AB);
  EXPECT_EQ(seen.back(), "Serial Number Program Complete");
  QTest::keyClick(shown, Qt::Key_Escape);
  EXPECT_FALSE(shown->isVisible());
  QCoreApplication::processEvents();
  EXPECT_TRUE(Find(*window, "Auto").isEnabled());
  EXPECT_EQ(TheAppState().selection.SnMode, 0U);
}

}  // namespace
}  // namespace pyxis::test
