// The main window mirrors the logic: a whole job through its menus and buttons, the writer pulled out and put back.
#include "ui/main_window.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QTest>

#include "platform/update_agent.h"
#include "ui/readable_style.h"
#include "ui/ui_bench.h"
#include "view/hex_view.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

class MainWindowTest : public UiBench {};

TEST_F(MainWindowTest, FromDeviceToAutoOk) {
  const std::string sample = Path(PutFolderFor("QVL04"));
  Open();
  EXPECT_FALSE(Choose("&Load File"));
  EXPECT_FALSE(Choose("&Save As..."));
  ScriptIc("USB: Full Speed Series", "QVL04");
  EXPECT_TRUE(Choose("&Device"));
  EXPECT_EQ(window->windowTitle(), "PyxisLoad  QVL04  ");
  EXPECT_EQ(Find<QLineEdit>(*window, "Chip Name").text(), "QVL04");
  EXPECT_TRUE(Find(*window, "Protect").isVisible());
  EXPECT_FALSE(Find(*window, "Protect").isEnabled());

  ScriptFile(sample);
  script.push_back([this](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Option Select 1");
    Press(dialog, "Protect");
    Press(dialog, "OK");
  });
  EXPECT_TRUE(Choose("&Load File"));
  EXPECT_EQ(seen, Texts{"Loading Data Ok"});
  EXPECT_EQ(Find<QLineEdit>(*window, "File").text().toStdString(), TheAppState().conversion.LoadedFilePath);
  EXPECT_EQ(Find<QLineEdit>(*window, "Checksum").text().toStdString(), TheAppState().conversion.ChecksumText);
  EXPECT_TRUE(Find<QCheckBox>(*window, "Protect").isChecked() && Find<QCheckBox>(*window, "Fast mode").isChecked());
  EXPECT_TRUE(Find(*window, "Buffer").isVisible());
  EXPECT_FALSE(Find(*window, "Messages").isVisible());
  EXPECT_GT(TheHexView().DataLength(), 0);

  Press(*window, "Auto");
  EXPECT_EQ(seen.back(), "Auto OK");
  EXPECT_EQ(window->focusWidget(), &Find(*window, "Auto"));  // Enter does the next chip
  EXPECT_FALSE(Find(*window, "Progress").isVisible());
}

// Readable without colour, and large.
TEST_F(MainWindowTest, TheLastVerdictStaysInWords) {
  const std::string sample = Path(PutFolderFor("QV8348"));
  Open();
  const auto words = [this] { return Find<QLabel>(*window, "Last verdict").text().toStdString(); };
  const auto counts = [this] { return Find<QLabel>(*window, "Counts since the last load").text().toStdString(); };
  const auto ground = [this] { return Find(*window, "Last verdict").palette().color(QPalette::Window); };
  const auto load = [&] {
    ScriptFile(sample);
    EXPECT_TRUE(Choose("&Load File"));
    EXPECT_EQ(All(words(), window->focusWidget()), All("", &Find(*window, "Auto")));
  };
  ScriptIc("MCU: 8 Bit QV83 Series", "QV8348", "Production Limit :");
  EXPECT_TRUE(Choose("&Device"));
  TheAppState().selection.ProductionLimitCount = 3;
  load();
  EXPECT_EQ(counts(), "Left 3");
  Press(*window, "Auto");
  EXPECT_EQ(All(words(), counts()), All("Auto OK", "OK 1   NG 0   Left 2"));
  const QColor good = ground();
  writer.chip.state = standin::ChipState::Worn;
  Press(*window, "Auto");
  EXPECT_EQ(All(words(), counts()), All("Auto FAIL", "OK 1   NG 1   Left 2"));
  EXPECT_NE(ground(), good);
  for (const QColor& colour : {ground(), good})
    EXPECT_GE(ui::ContrastOf(colour, Find(*window, "Last verdict").palette().color(QPalette::WindowText)), 4.5);
  EXPECT_GT(Find(*window, "Last verdict").fontMetrics().height(), 3 * window->fontMetrics().height() / 2);
  load();
  EXPECT_EQ(counts(), "Left 3");
}

TEST_F(MainWindowTest, OnlyPaintsPassDuringAnOperation) {
  HoldJob("QV8348");
  Open();
  int timers = 0, posted = 0;
  QTimer::singleShot(0, window.get(), [&] { ++timers; });
  QMetaObject::invokeMethod(
      window.get(), [&] { ++posted; }, Qt::QueuedConnection);
  QCoreApplication::postEvent(&Find(*window, "Auto"), new QKeyEvent(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier));
  SetControlText(ControlId::ChecksumField, "BEEF");
  window->PumpPaint();
  EXPECT_EQ(Find<QLineEdit>(*window, "Checksum").text(), "BEEF");
  EXPECT_EQ(timers + posted, 0);
  EXPECT_TRUE(seen.empty());
  SetProgressRange(0, 50);
  SetProgressPosition(20);
  auto& bar = Find<QProgressBar>(*window, "Progress");
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.value(), 20);
}

TEST_F(MainWindowTest, ClosingAsks) {
  Open();
  EXPECT_FALSE(window->close());
  EXPECT_TRUE(window->isVisible());
  answers = {QMessageBox::Yes, QMessageBox::No};
  Choose("&Exit");
  QCoreApplication::processEvents();
  EXPECT_TRUE(window->isVisible());
  answers = {QMessageBox::Yes};
  EXPECT_TRUE(window->close());
  EXPECT_EQ(seen, Texts(4, "Are you sure to Exit ?"));
}

// Check new version from the menu: the main window stays, or goes without another question.
class VersionCheckWindow : public UiBench, public UpdateAgent {
  std::int32_t CallUpdateAgent(const char*) override {
    EXPECT_FALSE(window->isEnabled());
    return 0;
  }
};

TEST_F(VersionCheckWindow, OnlyYesEndsTheProgram) {
  Open();
  TheMachine().update = this;
  Find(*window, "Buffer").setFocus();
  QWidget* focused = window->focusWidget();
  ASSERT_NE(focused, nullptr);
  EXPECT_TRUE(Choose("Check new version"));
  EXPECT_TRUE(window->isEnabled() && window->isVisible());
  EXPECT_EQ(window->focusWidget(), focused);
  answers = {QMessageBox::Yes};
  EXPECT_TRUE(Choose("Check new version"));
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(seen, Texts(2, "Do you want to exit old version of PyxisLoad ?"));
}

}  // namespace
}  // namespace pyxis::test
