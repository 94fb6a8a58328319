// The main window mirrors the logic: a whole job through its menus and buttons, the writer pulled out and put back.
#include "ui/main_window.h"

#include <unistd.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QTest>

#include "platform/update_agent.h"
#include "ui/hex_view_widget.h"
#include "ui/ui_bench.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

// Events through a pipe, as from the system.
class PipeEvents : public DeviceEvents {
 public:
  PipeEvents() { EXPECT_EQ(pipe(ends_), 0); }
  ~PipeEvents() override { close(ends_[0]), close(ends_[1]); }
  void Raise(DeviceEvent::Kind kind) {
    waiting.push_back({kind, std::string("usb1-2#{") + kWriterInterfaceClass + "}"});
    EXPECT_EQ(write(ends_[1], "x", 1), 1);
  }
  std::vector<int> Descriptors() override { return {ends_[0]}; }
  std::vector<DeviceEvent> Take() override {
    char drained[1];
    for (std::size_t i = 0; i < waiting.size(); ++i) EXPECT_EQ(read(ends_[0], drained, 1), 1);
    return std::exchange(waiting, {});
  }
  std::vector<DeviceEvent> waiting;

 private:
  int ends_[2];
};

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

TEST_F(MainWindowTest, PulledOutAndPutBack) {
  HoldJob("QV8348");
  PipeEvents events;
  Open();
  window->Watch(events);
  EXPECT_TRUE(Find(*window, "Auto").isEnabled());
  usb.pluggedIn = false;
  events.Raise(DeviceEvent::Kind::Removal);
  QCoreApplication::processEvents();
  EXPECT_FALSE(Find(*window, "Auto").isEnabled());
  usb.pluggedIn = true;
  // It comes back while an operation asks something, and waits for the operation's end.
  script.push_back([&](QWidget& dialog) {
    events.Raise(DeviceEvent::Kind::Arrival);
    QCoreApplication::processEvents();
    EXPECT_EQ(TheAppState().writer.WriterConnected, 0U);
    dialog.close();
  });
  Choose("&About");
  QCoreApplication::processEvents();
  EXPECT_EQ(TheAppState().writer.WriterConnected, 1U);
  EXPECT_TRUE(Find(*window, "Auto").isEnabled());
  window.reset();
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

TEST_F(MainWindowTest, AClickMadeDuringAnOperationStartsNothing) {
  HoldJob("QV8348");
  Open();
  const auto click = [this] { PostClick(Find(*window, "Auto")); };
  qtOp.Gate().Run(click);
  QCoreApplication::processEvents();
  EXPECT_TRUE(seen.empty());
  click();
  QCoreApplication::processEvents();
  EXPECT_EQ(seen, Texts{"Auto OK"});
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

TEST_F(MainWindowTest, HexViewByMouseAndKeys) {
  Write("counting", [] {
    Bytes bytes(1000);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i);
    return bytes;
  }());
  Open();
  ShowFile(Path("counting"));
  QCoreApplication::processEvents();
  auto& hex = Find<QAbstractScrollArea>(*window, "Buffer");
  hex.viewport()->grab();  // paints
  CMiniHexEditView& view = TheHexView();
  const int cell = view.geometry.CharWidth;
  QTest::mouseClick(hex.viewport(), Qt::LeftButton, {}, QPoint(9 * cell + 1, view.geometry.LineHeight + 1));
  EXPECT_EQ(view.caret.CurrentOffset, static_cast<int>(view.geometry.m_lpr));
  EXPECT_TRUE(hex.hasFocus());
  QTest::keyClicks(&hex, "5a");
  EXPECT_EQ(view.Data[view.geometry.m_lpr], 0x5A);
  QTest::keyClick(&hex, Qt::Key_Tab);
  EXPECT_TRUE(hex.hasFocus());
  script.push_back([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Go to address");
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), "12345");  // the marked zeros go
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  QTest::keyClick(&hex, Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(view.geometry.TopOffset, view.DataLength() - view.geometry.LinesPerPage * static_cast<int>(view.geometry.m_lpr));
  QTest::mousePress(hex.viewport(), Qt::LeftButton, {}, QPoint(9 * cell + 1, 1));
  QTest::mouseMove(hex.viewport(), QPoint(9 * cell + 40 * cell, 1));
  EXPECT_TRUE(view.selection.Exists());
  QTest::mouseRelease(hex.viewport(), Qt::LeftButton, {}, QPoint(9 * cell + 40 * cell, 1));
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
