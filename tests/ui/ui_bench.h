// The real main window over the in-process stand-in writer. A script plays the operator: whenever a modal window opens,
// its next step gets it; message boxes are answered by themselves and remembered.
#pragma once

#include <unistd.h>

#include <QMessageBox>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

#include "link/identification.h"
#include "platform/device_events.h"
#include "support/standin_bench.h"
#include "ui/main_window.h"
#include "ui/qt_operator.h"

namespace pyxis::test {

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

// Calls back once when the program looks at the clock.
class HookedClock : public FakeClock {
 public:
  std::function<void()> hook;
  std::uint32_t TickCount() override {
    if (const auto call = std::exchange(hook, nullptr)) call();
    return FakeClock::TickCount();
  }
};

class UiBench : public StandinBench {
 protected:
  explicit UiBench(Transport transport = Transport::Usb, Model model = Model::Km48);
  ~UiBench() override;

  // A job in the writer before the program starts, by the scripted operator; with a burnt chip where it is wanted.
  void HoldJob(const std::string& label, bool burn = false);
  // Starts the window, as at program start, in the bench's folder.
  void Open();
  // A menu entry as an operator chooses it: its menu opens first. False when it is disabled.
  bool Choose(const QString& caption);
  // A button by its caption without the mnemonic.
  void Press(QWidget& within, const QString& caption);
  void Raise(bool arrival);  // the writer put in or pulled out
  // Pulls the cable and puts it back under an open window.
  void PullAndPutBack(const QWidget& open);

  std::unique_ptr<ui::MainWindow> window;
  ui::QtOperator qtOp;
  std::deque<std::function<void(QWidget&)>> script;
  std::deque<QMessageBox::StandardButton> answers;  // to Yes/No boxes; No when empty
  Texts seen;                                       // texts of the message boxes
  std::function<void(QMessageBox&)> onBox;          // gets the next box in place of an answer
  PipeEvents events;
  HookedClock hooked;

 private:
  void PlaySoon();
  void Play();
  QObject player_;
  QList<QWidget*> handled_;  // each by a step that isn't over
  std::filesystem::path before_;
};

// Everything that must hold of a window of that name, see every_window_test.cpp.
void LookAt(QWidget& shown, const std::string& name);

// Input that waits in the event queue.
void PostClick(QWidget& target);
void PostKey(QWidget& target, int key, const QString& text = {});

// A child by its accessible name or description, a button by its caption without the mnemonic, or a field by the label
// in front of it. Throws, and so fails the test, when there is none, or none of that class.
QWidget& FindControl(QWidget& within, const QString& name);
template <typename Control = QWidget>
Control& Find(QWidget& within, const QString& name) {
  return dynamic_cast<Control&>(FindControl(within, name));
}

}  // namespace pyxis::test
