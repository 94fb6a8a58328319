// What comes in between: the writer pulled out and put back under every window, keys and clicks while an operation
// runs, held keys, and a message box that nobody can have read yet.
#include <QAbstractScrollArea>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "serial/sn_record.h"
#include "ui/message_box.h"
#include "ui/ui_bench.h"
#include "view/hex_view.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

// Calls back when the program looks at the clock.
class HookedClock : public FakeClock {
 public:
  std::function<void()> hook;
  std::uint32_t TickCount() override {
    if (const auto call = std::exchange(hook, nullptr)) call();
    return FakeClock::TickCount();
  }
};

class Input : public UiBench {
 protected:
  Input() { TheMachine().clock = &hooked; }
  ~Input() override {
    window.reset();
    TheMachine().clock = &clock;
  }
  void Open(const std::string& label = "QV8348") {
    HoldJob(label);
    UiBench::Open();
    window->Watch(events);
  }
  void Raise(bool arrival) {
    usb.pluggedIn = arrival;
    events.Raise(arrival ? DeviceEvent::Kind::Arrival : DeviceEvent::Kind::Removal);
    QCoreApplication::processEvents();
  }
  // Pulls the cable and puts it back under an open window.
  void PullAndPutBack(const QWidget& open, const std::string& where) {
    Raise(false);
    EXPECT_EQ(TheMainControls().statusBar.pane1, "USB was not connected") << where;
    EXPECT_FALSE(TheAppState().writer.WriterConnected) << where;
    Raise(true);
    EXPECT_NE(TheMainControls().statusBar.pane1, "USB was not connected") << where;
    EXPECT_TRUE(TheAppState().writer.WriterConnected && open.isVisible()) << where;
  }
  static void Post(QWidget& target, int key, const QString& text = {}) {
    for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease})
      QCoreApplication::postEvent(&target, new QKeyEvent(kind, key, Qt::NoModifier, text));
  }

  PipeEvents events;
  HookedClock hooked;
};

TEST_F(Input, TheWriterComesAndGoesUnderEveryDialog) {
  Open();
  Write("some.bin", Bytes(64));
  // How each is opened; its last step is the dialog in question.
  const auto leaf = [this](const char* where) {
    script.push_back([this, where](QWidget& dialog) {
      PullAndPutBack(dialog, where);
      dialog.close();
    });
  };
  for (const char* entry :
       {"&About", "&Device", "&Load File", "&Update F/W", "Serial Number Program", "Compare File", "Read Chip Info"}) {
    leaf(entry);
    EXPECT_TRUE(Choose(entry)) << entry;
    EXPECT_TRUE(script.empty()) << entry;
  }
  leaf("Smart Option");
  Press(*window, "Smart Option");
  for (const auto& [entry, button] :
       Table<const char*, const char*>{{"Serial Number Program", "S/N SET"}, {"Compare File", "Compare File"}}) {
    script.push_back([&, button = button](QWidget& dialog) {
      leaf(button);
      Press(dialog, button);
      dialog.close();
    });
    EXPECT_TRUE(Choose(entry));
  }
  ShowFile(Path("some.bin"));
  QCoreApplication::processEvents();
  leaf("Go to address");
  QTest::keyClick(&Find(*window, "Buffer"), Qt::Key_G, Qt::ControlModifier);
  for (const bool byMenu : {true, false}) {
    onBox = [this](QMessageBox& box) { PullAndPutBack(box, box.text().toStdString()); };
    byMenu ? void(Choose("&Exit")) : void(window->close());
    EXPECT_EQ(seen.back(), "Are you sure to Exit ?");
  }
  EXPECT_TRUE(window->isVisible());
}

TEST_F(Input, OptionSelectToo) {
  Open("QVL04");
  script.push_back([this](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Option Select 1");
    PullAndPutBack(dialog, "Set Protect");
    dialog.close();
  });
  EXPECT_TRUE(Choose("Set Protect"));
}

// Only an operation holds them, and its message box with it.
TEST_F(Input, DevicesWaitForAnOperation) {
  Open();
  onBox = [this](QMessageBox& box) {
    EXPECT_EQ(box.text(), "Auto OK");
    Raise(false);
    EXPECT_TRUE(TheAppState().writer.WriterConnected);
  };
  hooked.hook = [this] {
    events.Raise(DeviceEvent::Kind::Removal);
    events.Raise(DeviceEvent::Kind::Arrival);
  };
  Press(*window, "Auto");
  EXPECT_EQ(seen, Texts{"Auto OK"});
  EXPECT_FALSE(TheAppState().writer.WriterConnected);  // all three, in their order
  EXPECT_TRUE(events.waiting.empty());
  Raise(true);
  EXPECT_TRUE(Find(*window, "Auto").isEnabled());
}

TEST_F(Input, ASeriesOutlivesThePlug) {
  Open();
  const auto field = [](QWidget& dialog, const QString& label) {
    for (const QLabel* candidate : dialog.findChildren<QLabel*>())
      if (candidate->text().remove(QLatin1Char('&')) == label) return dynamic_cast<QLineEdit*>(candidate->buddy());
    return static_cast<QLineEdit*>(nullptr);
  };
  script.push_back([&](QWidget& dialog) {
    script.push_back([&](QWidget& set) {
      PullAndPutBack(set, "Serial Number Set");
      for (const auto& [label, text] : Table<const char*, const char*>{
               {"S/N Length [Hex]:", "2"}, {"S/N Start Address (Hex) :", "3fa"}, {"S/N Amount (Hex) : ", "3"}}) {
        QTest::keyClick(field(set, label), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field(set, label), text);
      }
      // Typed and clicked while serial.txt goes out: neither the fields nor the record change.
      hooked.hook = [&] {
        Post(*field(set, "S/N Amount (Hex) : "), Qt::Key_7, "7");
        PostClick(Find(set, "Hight Byte"));
      };
      QTest::keyClick(&set, Qt::Key_Return);
    });
    Press(dialog, "S/N SET");
    EXPECT_EQ(All(TheSnRecord().SnAmountText, TheSnRecord().SnDirection), All("3", 0));
    QTest::keyClick(&dialog, Qt::Key_Return);
    PullAndPutBack(dialog, "Serial Number Program");
    EXPECT_TRUE(Find(dialog, "S/N Program").isEnabled());
    writer.chip = standin::Chip{};
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(field(dialog, "OK (Hex) : ")->text(), "2");
    EXPECT_EQ(field(dialog, "Start Serial NO[Hex] : ")->text(), "0002");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_TRUE(Choose("Serial Number Program"));
}

TEST_F(Input, WhatIsTypedDuringAnOperationIsDroppedEverywhere) {
  Open();
  Write("zeros", Bytes(5000));
  ShowFile(Path("zeros"));
  QCoreApplication::processEvents();
  QWidget& hex = Find(*window, "Buffer");
  QWidget& port = *dynamic_cast<QAbstractScrollArea&>(hex).viewport();
  port.grab();
  CMiniHexEditView& view = TheHexView();
  view.OnLButtonDown(10 * view.geometry.CharWidth, 1, false);
  const auto type = [&] {
    Post(hex, Qt::Key_F, "f");
    const QPointF at(10, 10), global = port.mapToGlobal(at);
    QCoreApplication::postEvent(
        &port, new QWheelEvent(at, global, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    PostClick(Find(*window, "Auto"));
    Post(Find(*window, "Auto"), Qt::Key_Space, " ");
  };
  qtOp.Gate().Run(type);
  QCoreApplication::processEvents();
  EXPECT_EQ(All(view.Data[0], view.geometry.TopOffset, seen.size()), All(0, 0, 0U));
  // Likewise when it comes before the operation's box, which it would close.
  hooked.hook = type;
  onBox = [&](QMessageBox& box) {
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(All(view.Data[0], view.geometry.TopOffset, seen.size()), All(0, 0, 1U));
  };
  Press(*window, "Auto");
  EXPECT_EQ(seen, Texts{"Auto OK"});
  type();
  QCoreApplication::processEvents();
  EXPECT_EQ(seen.size(), 2U);  // at rest the click counts, and the key comes while that task runs
  EXPECT_EQ(All(view.Data[0], view.geometry.TopOffset > 0), All(0x0F, true));
}

TEST_F(Input, ABoxTakesNothingBeforeItCanBeRead) {
  Open();
  onBox = [this](QMessageBox& box) {
    QWidget& ok = *box.button(QMessageBox::Ok);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    QCoreApplication::processEvents();
    const std::uint32_t shown = hooked.tick;
    const auto press = [&] {
      for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape}) QTest::keyClick(&ok, key);
      QTest::mouseClick(&ok, Qt::LeftButton);
    };
    press();
    hooked.tick = shown + 250;
    press();
    EXPECT_TRUE(box.isVisible());
    hooked.tick = shown + 300;
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape})
      for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent held(kind, key, {}, {}, true);
        QApplication::sendEvent(&ok, &held);
      }
    EXPECT_TRUE(box.isVisible());
    QTest::keyClick(&ok, Qt::Key_Space);
    EXPECT_FALSE(box.isVisible());
  };
  Press(*window, "Auto");
  EXPECT_EQ(seen, Texts{"Auto OK"});
}

// A held key presses a button once, told as a repeat or, as an X server sends it, as pairs of one moment.
TEST_F(Input, AHeldKeyPressesOnce) {
  Open();
  int presses = 0;
  QPushButton button(QStringLiteral("&Go"));
  button.setAutoDefault(true);
  QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++presses; });
  button.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&button));
  const auto send = [&](QEvent::Type kind, Qt::Key key, quint64 moment, bool repeat) {
    QKeyEvent event(kind, key, {}, {}, repeat);
    event.setTimestamp(moment);
    QApplication::sendEvent(&button, &event);
  };
  for (const auto key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Enter})
    for (const bool told : {true, false}) {
      presses = 0;
      send(QEvent::KeyPress, key, 100, false);
      for (quint64 moment = 500; moment < 600; moment += 30) {
        send(QEvent::KeyRelease, key, moment, told);
        send(QEvent::KeyPress, key, moment, told);
      }
      send(QEvent::KeyRelease, key, 700, false);
      EXPECT_EQ(presses, 1) << key << told;
    }
  presses = 0;
  for (const bool repeat : {false, true, true}) {
    QKeyEvent mnemonic(QEvent::ShortcutOverride, Qt::Key_G, Qt::AltModifier, "g", repeat);
    mnemonic.ignore();
    QApplication::sendEvent(&button, &mnemonic);
    EXPECT_EQ(mnemonic.isAccepted(), repeat);  // overridden, so that nothing looks for the shortcut
  }
  QLineEdit text;
  for (const bool repeat : {false, true}) {
    QKeyEvent blank(QEvent::KeyPress, Qt::Key_Space, {}, " ", repeat);
    QApplication::sendEvent(&text, &blank);
  }
  EXPECT_EQ(text.text(), "  ");  // typing repeats
}

// Every text of the program, with the longest values that it can take.
TEST_F(Input, MessageBoxesShowTheirWholeText) {
  UiBench::Open();
  const std::string path =
      "/home/operator/" + std::string(120, 'p') + "/jobs of the week/" + std::string(200, 'f') + ".hex";
  const std::string tooWide(3000, 'W');
  const QSize screen = window->screen()->availableGeometry().size();
  for (const std::string& text :
       {std::string("Auto OK"), std::string("Do you want to exit old version of PyxisLoad ?"),
        std::string("KM48 Error About To Enter The Test Mode.\nPlease Wait"),
        std::string("Test Ok.\nPlease Re-select The IC"), std::string(" MTP/Flash series IC will clear all data "),
        std::string("Please Keyin 'S/N Amount'. ( >= 1 )"),
        std::string("Software Version is Old, Still continue to use ?"),
        std::string("'Input Serial Number Length Error"),
        std::string("Please enter an integer between 1 and 99999999."), path + " open file error\n",
        path + " write file error\n", "Open Fail ! (" + path + ")", tooWide}) {
    for (const char* caption : {"Message", " ", "Select Exit ? "}) {
      ui::MessageBox box(QMessageBox::Warning, caption, QString::fromStdString(text), QMessageBox::Ok, window.get());
      box.show();
      QCoreApplication::processEvents();
      const auto& label = *box.findChild<QLabel*>("qt_msgbox_label");
      int widest = 0;
      for (const QString& line : QString::fromStdString(text).split('\n'))
        widest = std::max(widest, label.fontMetrics().horizontalAdvance(line));
      if (widest > label.width()) {
        EXPECT_TRUE(label.wordWrap()) << text;
        EXPECT_GE(label.width(), screen.width() - 250) << text;
        const auto flags = Qt::TextWordWrap | Qt::AlignLeft;
        const QRect needed = label.fontMetrics().boundingRect(QRect(0, 0, label.width(), 9999), flags, label.text());
        EXPECT_LE(needed.width(), label.width()) << text;
        EXPECT_LE(needed.height(), label.height()) << text;
      }
      EXPECT_LE(box.width(), screen.width()) << text;
      EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance(caption)) << text;
    }
  }
}

}  // namespace
}  // namespace pyxis::test
