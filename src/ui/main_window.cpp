#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusTipEvent>
#include <optional>
#include <utility>

#include "serial/sn_run.h"
#include "ui/device_watch.h"
#include "ui/hex_view_widget.h"
#include "ui/main_menu.h"
#include "ui/main_panel.h"
#include "ui/progress_status_bar.h"
#include "ui/qt_text.h"
#include "ui/sn_program_window.h"
#include "view/goto_address.h"

namespace pyxis::ui {

namespace {

constexpr QSize kSize(1180, 720);   // as far as the screen has room for it
constexpr qint64 kProgressMs = 15;  // between two paints of the bar
constexpr qint64 kUncoverMs = 250;  // between two paints of the whole window while an operation runs

}  // namespace

MainWindow::MainWindow(HandlerGate& gate)
    : gate_(gate), panel_(new MainPanel(this)), statusBar_(new ProgressStatusBar(this)) {
  setStatusBar(statusBar_);
  setCentralWidget(panel_);
  BuildMainMenu(*menuBar(), [this](MenuEntry entry) { OnEntry(entry); });
  panel_->Pressed = [this](ControlId id) { Run([this, id] { dialog_.OnButton(id); }); };
  panel_->MouseMoved = [this](int x, int y) { dialog_.OnMouseMove(x, y); };
  panel_->DropsMousePress = [this] { return dialog_.DropsMousePress(); };
  panel_->Hex().GotoAsked = [this] { Run([] { OnGotoAddress(TheHexView()); }); };
  resize(kSize.boundedTo(screen()->availableSize() * 9 / 10));
  gate_.Starting = [this] { worked_ = focusWidget(); };
  gate_.Ended = [this] {
    Sync();
    RestoreFocus();
    if (closeAsked_) CloseSoon();
  };
  gate_.Idle = [this] {
    if (watch_ != nullptr && !closeAsked_) watch_->Deliver();
  };
  sinceProgress_.start();
  sinceRepaint_.start();
}

MainWindow::~MainWindow() {
  gate_.Starting = gate_.Ended = gate_.Idle = [] {};
  delete snProgress_;  // before the dialog that it shows
  dialog_.OnDestroy();
}

void MainWindow::Start() {
  dialog_.OnInitDialog();
  Sync();
}

void MainWindow::Watch(DeviceEvents& events) {
  watch_ = new DeviceWatch(this, events, [this](const DeviceEvent& event) {
    if (gate_.Busy()) return false;
    gate_.Run([this, &event] { dialog_.OnDevice(event); });
    return true;
  });
}

// To where the operation wants it, else to where it was: a button that was greyed for a while has lost it, and Enter
// shall find it for the next chip.
void MainWindow::RestoreFocus() {
  const auto wanted = std::exchange(TheMainControls().focus, std::nullopt);
  if (wanted && panel_->Focus(*wanted)) return;
  if (worked_ != nullptr && worked_->isEnabled()) worked_->setFocus();
}

void MainWindow::Run(const std::function<void()>& handler) {
  if (!gate_.DialogOpen()) gate_.Run(handler);
}

// The question whether to exit is no operation: devices come and go under it.
void MainWindow::OnEntry(MenuEntry entry) {
  Run([this, entry] {
    std::optional<HandlerGate::Open> question;
    if (entry == MenuEntry::Exit) question.emplace(gate_);
    dialog_.OnCommand(entry);
  });
}

void MainWindow::ControlsChanged() {
  dirty_ = true;
  SyncSoon();
}

void MainWindow::HexViewChanged() { panel_->Hex().Refresh(); }

bool MainWindow::CreateSnProgress() {
  snProgress_ = new SnProgramWindow(*SnProgressDlg(), gate_, this);
  return true;
}

void MainWindow::SnProgressChanged() {
  if (snProgress_ != nullptr) snProgress_->setVisible(SnProgressDlg()->visible);
}

void MainWindow::ProgressChanged() {
  const bool hides = statusBar_->ShowsProgress() != TheMainControls().statusBar.progressVisible;
  if (!hides && sinceProgress_.elapsed() < kProgressMs) return ControlsChanged();
  sinceProgress_.restart();
  statusBar_->Sync();
  statusBar_->repaint();
  RepaintUncovered();
}

// Events of the window system wait while an operation runs, so nobody says that the window has been uncovered.
void MainWindow::RepaintUncovered() {
  if (!gate_.Busy() || sinceRepaint_.elapsed() < kUncoverMs) return;
  sinceRepaint_.restart();
  repaint();
}

void MainWindow::SyncSoon() {
  if (syncPosted_) return;
  syncPosted_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        syncPosted_ = false;
        Sync();
      },
      Qt::QueuedConnection);
}

void MainWindow::Sync() {
  dirty_ = false;
  setWindowTitle(FromText(TheMainControls().title));
  panel_->Sync();
  statusBar_->Sync();
  if (snProgress_ != nullptr) snProgress_->ShowVerdict();
}

void MainWindow::PumpPaint() {
  if (dirty_) Sync();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    QCoreApplication::sendPostedEvents(window, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(window, QEvent::UpdateRequest);
  }
  RepaintUncovered();
}

// Not before the handler that asks for it has ended.
void MainWindow::CloseMainWindow() {
  closeAsked_ = true;
  if (!gate_.Busy() && !gate_.DialogOpen()) CloseSoon();
}

void MainWindow::CloseSoon() {
  closeAsked_ = false;
  QMetaObject::invokeMethod(
      this, [this] { close(); }, Qt::QueuedConnection);
}

void MainWindow::EndMainWindow() {
  ended_ = true;
  CloseMainWindow();
}

// Disabling takes the focus away; it comes back when the handler has ended.
void MainWindow::EnableMainWindow(bool enabled) { setEnabled(enabled); }

// A menu entry's prompt shows in pane 0, like the other texts of the status bar.
bool MainWindow::event(QEvent* event) {
  if (event->type() != QEvent::StatusTip) return QMainWindow::event(event);
  dialog_.OnMenuPrompt(ToText(static_cast<QStatusTipEvent*>(event)->tip()));
  return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!ended_)
    Run([this] {
      const HandlerGate::Open question(gate_);
      ended_ = dialog_.OnSysClose();
    });
  event->setAccepted(ended_);
  if (ended_) QApplication::quit();
}

}  // namespace pyxis::ui
