// What comes in between: keys and clicks while an operation runs, held keys, and a message box that nobody can have
// read yet.
#include <QAbstractScrollArea>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include "data/cases.h"
#include "ui/message_box.h"
#include "ui/ui_bench.h"
#include "view/hex_view.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

class Input : public UiBench {
 protected:
  void OpenWithJob() {
    HoldJob("QV8348");
    Open();
  }
};

TEST_F(Input, OnlyPaintsPassDuringAnOperation) {
  OpenWithJob();
  int timers = 0, posted = 0;
  QTimer::singleShot(0, window.get(), [&] { ++timers; });
  QMetaObject::invokeMethod(
      window.get(), [&] { ++posted; }, Qt::QueuedConnection);
  PostKey(Find(*window, "Auto"), Qt::Key_Space);
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

TEST_F(Input, WhatIsTypedDuringAnOperationIsDroppedEverywhere) {
  OpenWithJob();
  Write("zeros", Bytes(5000));
  ShowFile(Path("zeros"));
  QCoreApplication::processEvents();
  QWidget& hex = Find(*window, "Buffer");
  QWidget& port = *dynamic_cast<QAbstractScrollArea&>(hex).viewport();
  port.grab();
  CMiniHexEditView& view = TheHexView();
  view.OnLButtonDown(10 * view.geometry.CharWidth, 1, false);
  const auto type = [&] {
    PostKey(hex, Qt::Key_F, "f");
    const QPointF at(10, 10), global = port.mapToGlobal(at);
    QCoreApplication::postEvent(
        &port, new QWheelEvent(at, global, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    PostClick(Find(*window, "Auto"));
    PostKey(Find(*window, "Auto"), Qt::Key_Space, " ");
  };
  qtOp.Gate().Run(type);
  QCoreApplication::processEvents();
  EXPECT_EQ(All(view.editing.Data[0], view.geometry.TopOffset, seen.size()), All(0, 0, 0U));
  // Likewise when it comes before the operation's box, which it would close.
  hooked.hook = type;
  onBox = [&](QMessageBox& box) {
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(All(view.editing.Data[0], view.geometry.TopOffset, seen.size()), All(0, 0, 1U));
  };
  Press(*window, "Auto");
  EXPECT_EQ(seen, Texts{"Auto OK"});
  type();
  QCoreApplication::processEvents();
  EXPECT_EQ(seen.size(), 2U);  // at rest the click counts, and the key comes while that task runs
  EXPECT_EQ(All(view.editing.Data[0], view.geometry.TopOffset > 0), All(0x0F, true));
}

TEST_F(Input, ABoxTakesNothingBeforeItCanBeRead) {
  hooked.tick = 100000;
  OpenWithJob();
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

// A box takes letters for its buttons, but none of a held key.
TEST_F(Input, AHeldLetterAnswersNoBox) {
  OpenWithJob();
  onBox = [this](QMessageBox& box) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    QCoreApplication::processEvents();
    hooked.tick += 300;
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Y, {}, "y", true);
    QApplication::sendEvent(&box, &held);
    EXPECT_FALSE(box.button(QMessageBox::Yes)->isDown());
    QTest::keyClick(&box, Qt::Key_N);
    EXPECT_TRUE(box.button(QMessageBox::No)->isDown());
  };
  Choose("&Exit");
  EXPECT_TRUE(window->isVisible());
}

// Nobody has seen it, however late it is painted.
TEST_F(Input, ABoxTakesNothingBeforeItsFirstPaint) {
  OpenWithJob();
  QMessageBox box(QMessageBox::Warning, "", "", QMessageBox::Ok);
  qtOp.Gate().Input().GuardBox(box);
  hooked.tick += 1000;
  QTest::keyClick(box.button(QMessageBox::Ok), Qt::Key_Space);
  EXPECT_EQ(box.clickedButton(), nullptr);
}

// A held key presses a button once, told as a repeat or, as an X server sends it, as pairs of one moment.
TEST_F(Input, AHeldKeyPressesOnce) {
  OpenWithJob();
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

TEST_F(Input, BoxesHaveTheirIconAndQuestionsYes) {
  Open();
  for (const auto& [icon, shown] : Table<MessageIcon, QMessageBox::Icon>{{MessageIcon::None, QMessageBox::NoIcon},
                                                                         {MessageIcon::Question, QMessageBox::Question},
                                                                         {MessageIcon::Warning, QMessageBox::Warning},
                                                                         {MessageIcon::Stop, QMessageBox::Critical}}) {
    onBox = [&](QMessageBox& box) { EXPECT_EQ(All(box.icon(), box.textFormat()), All(shown, Qt::PlainText)); };
    qtOp.Tell("<b>", "", icon);
  }
  onBox = [](QMessageBox& box) {
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
    EXPECT_EQ(box.escapeButton(), box.button(QMessageBox::No));
  };
  qtOp.Ask("?", "", MessageIcon::Question);
}

// Every text of the program, with the longest values that it can take.
TEST_F(Input, MessageBoxesShowTheirWholeText) {
  Open();
  const QRect screen = window->screen()->availableGeometry();
  window->move(screen.right() - window->width() / 4, 0);
  ForEachCase("message_boxes.tsv", "texts", [&](const Case& c) {
    ui::MessageBox box(QMessageBox::Warning, QString::fromStdString(c[0]), QString::fromStdString(c[1]),
                       QMessageBox::Ok, window.get());
    box.show();
    QCoreApplication::processEvents();
    const auto& label = *box.findChild<QLabel*>("qt_msgbox_label");
    int widest = 0;
    for (const QString& line : box.text().split('\n'))
      widest = std::max(widest, label.fontMetrics().horizontalAdvance(line));
    EXPECT_EQ(label.text().remove(QChar(0x200B)).toStdString(), c[1]);  // but for the places where it may break
    if (widest > label.width()) {
      EXPECT_TRUE(label.wordWrap());
      EXPECT_GE(label.width(), screen.width() - 250);
      const auto flags = Qt::TextWordWrap | Qt::AlignLeft;
      const QRect needed = label.fontMetrics().boundingRect(QRect(0, 0, label.width(), 9999), flags, label.text());
      EXPECT_TRUE(needed.width() <= label.width() && needed.height() <= label.height());
    }
    EXPECT_TRUE(box.rect().contains(QRect(label.mapTo(&box, QPoint()), label.size())));
    EXPECT_TRUE(box.x() >= 0 && box.y() >= 0 && box.frameGeometry().right() <= screen.right());
    EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()));
  });
}

}  // namespace
}  // namespace pyxis::test
