#include "ui/ui_bench.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <stdexcept>

#include "link/identification.h"
#include "operations/tasks.h"
#include "ui/qt_text.h"

namespace pyxis::test {

namespace {

constexpr int kPlayMs = 2;

QString Bare(QString text) { return text.remove(QLatin1Char('&')); }

}  // namespace

QWidget& FindControl(QWidget& within, const QString& name) {
  for (QWidget* child : within.findChildren<QWidget*>()) {
    if (child->accessibleName() == name || child->accessibleDescription() == name) return *child;
    const auto* label = qobject_cast<QLabel*>(child);
    const bool labelled = label != nullptr && label->buddy() != nullptr;
    if (label == nullptr && qobject_cast<QAbstractButton*>(child) == nullptr) continue;
    if (Bare(child->property("text").toString()).trimmed() == name) return labelled ? *label->buddy() : *child;
  }
  throw std::runtime_error("no control " + name.toStdString());
}

void PostClick(QWidget& target) {
  const QPointF at(5, 5), global = target.mapToGlobal(at);
  for (const auto kind : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const auto held = kind == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QCoreApplication::postEvent(&target, new QMouseEvent(kind, at, global, Qt::LeftButton, held, Qt::NoModifier));
  }
}

void PostKey(QWidget& target, int key, const QString& text) {
  for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease})
    QCoreApplication::postEvent(&target, new QKeyEvent(kind, key, Qt::NoModifier, text));
}

UiBench::UiBench(Transport transport, Model model)
    : StandinBench(transport, model), before_(std::filesystem::current_path()) {
  std::filesystem::current_path(folder);
  TheMachine().op = &qtOp;
  TheMachine().clock = &hooked;
  PlaySoon();
}

UiBench::~UiBench() {
  EXPECT_TRUE(script.empty()) << "a window that should have opened didn't";
  window.reset();
  TheMachine().op = &op;
  TheMachine().clock = &clock;
  std::filesystem::current_path(before_);
}

void UiBench::HoldJob(const std::string& label, bool burn) {
  TheMachine().op = &op;
  LoadSample(label);
  if (burn) OnAuto();
  TheMachine().op = &qtOp;
}

void UiBench::Raise(bool arrival) {
  usb.pluggedIn = arrival;
  events.Raise(arrival ? DeviceEvent::Kind::Arrival : DeviceEvent::Kind::Removal);
  QCoreApplication::processEvents();
}

void UiBench::PullAndPutBack(const QWidget& open) {
  for (const bool in : {false, true}) {
    Raise(in);
    EXPECT_EQ(TheMainControls().statusBar.pane1 != "USB was not connected", in);
    EXPECT_EQ(TheAppState().writer.WriterConnected, in);
  }
  EXPECT_TRUE(open.isVisible());
}

void UiBench::Open() {
  CloseTransport();
  ResetAppState();
  ResetMainControls();
  OpenTransport();
  window = std::make_unique<ui::MainWindow>(qtOp.Gate());
  TheMachine().view = window.get();
  qtOp.SetMainWindow(window.get());
  window->Start();
  window->Watch(events);
  window->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
}

// A timer of its own each time: one that is being served doesn't serve the windows that its step opens.
void UiBench::PlaySoon() {
  QTimer::singleShot(kPlayMs, &player_, [this] {
    PlaySoon();
    Play();
  });
}

void UiBench::Play() {
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr || handled_.contains(modal) || !modal->isVisible()) return;
  handled_.append(modal);
  if (auto* box = qobject_cast<QMessageBox*>(modal)) {
    seen.push_back(ui::ToText(box->text()));
    if (const auto step = std::exchange(onBox, nullptr)) step(*box);
    if (box->isVisible()) {
      QMessageBox::StandardButton answer = QMessageBox::Ok;
      if (box->standardButtons() != QMessageBox::Ok) {
        answer = answers.empty() ? QMessageBox::No : answers.front();
        if (!answers.empty()) answers.pop_front();
      }
      box->button(answer)->click();
    }
  } else if (script.empty()) {
    ADD_FAILURE() << "unexpected window " << modal->windowTitle().toStdString();
    modal->close();
  } else {
    const auto step = script.front();
    script.pop_front();
    step(*modal);
  }
  handled_.removeAll(modal);
}

bool UiBench::Choose(const QString& caption) {
  for (QAction* action : window->menuBar()->findChildren<QAction*>()) {
    if (action->text() != caption) continue;
    if (auto* menu = qobject_cast<QMenu*>(action->parent())) emit menu->aboutToShow();
    const bool enabled = action->isEnabled();
    action->trigger();
    QCoreApplication::processEvents();
    return enabled;
  }
  throw std::runtime_error("no menu entry " + caption.toStdString());
}

void UiBench::Press(QWidget& within, const QString& caption) {
  QTest::mouseClick(&Find(within, caption), Qt::LeftButton);
  QCoreApplication::processEvents();
}

}  // namespace pyxis::test
