// The main window: mirrors MainControls and the hex view, and hands every event to CPyxisLoadDlg.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>

#include "platform/device_events.h"
#include "platform/main_view.h"
#include "shell/main_dialog.h"
#include "ui/handler_gate.h"

namespace pyxis::ui {

class DeviceWatch;
class MainPanel;
class ProgressStatusBar;
class SnProgramWindow;

class MainWindow : public QMainWindow, public MainView {
 public:
  // The gate is the operator's: one for all windows.
  explicit MainWindow(HandlerGate& gate);
  ~MainWindow() override;

  // Brings the dialog up from the current directory and the open link; then show() it.
  void Start();
  // Follows devices; `events` must outlive the window.
  void Watch(DeviceEvents& events);

  void ControlsChanged() override;
  void ProgressChanged() override;
  void HexViewChanged() override;
  void SnProgressChanged() override;
  bool CreateSnProgress() override;
  void PumpPaint() override;
  void CloseMainWindow() override;
  void EndMainWindow() override;
  void EnableMainWindow(bool enabled) override;

  CPyxisLoadDlg& Dialog() { return dialog_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // An operation of this window's, while no dialog lies over it.
  void Run(const std::function<void()>& handler);
  void OnEntry(MenuEntry entry);
  void Sync();
  void RestoreFocus();
  void SyncSoon();
  void CloseSoon();
  void RepaintUncovered();

  CPyxisLoadDlg dialog_;
  HandlerGate& gate_;
  MainPanel* panel_;
  ProgressStatusBar* statusBar_;
  DeviceWatch* watch_ = nullptr;
  SnProgramWindow* snProgress_ = nullptr;
  QPointer<QWidget> worked_;  // had the focus when a handler started
  QElapsedTimer sinceProgress_, sinceRepaint_;
  bool dirty_ = true;
  bool syncPosted_ = false;
  bool closeAsked_ = false;
  bool ended_ = false;
};

}  // namespace pyxis::ui
