// How the main window hears that its model changed. The model is TheMainControls() (shell/ground/main_controls.h),
// TheHexView() and SnProgressDlg; a view reads it, it decides nothing.
#pragma once

namespace pyxis {

class MainView {
 public:
  virtual ~MainView() = default;
  // A control's text or state changed; shown with the next paint.
  virtual void ControlsChanged() {}
  // The progress bar moved. Called very often while a task is polled; shown at once, as far as an eye can follow.
  virtual void ProgressChanged() {}
  virtual void HexViewChanged() {}
  virtual void SnProgressChanged() {}
  // Makes the window of SnProgressDlg, hidden; false when it can't be made.
  virtual bool CreateSnProgress() { return true; }
  // Takes every queued paint out of the queue and dispatches it, and no other message.
  virtual void PumpPaint() {}
  // The system close command of the main window (asks, then ends it).
  virtual void CloseMainWindow() {}
  // Ends the main window without a question.
  virtual void EndMainWindow() {}
  // A disabled main window gets no input.
  virtual void EnableMainWindow(bool /*enabled*/) {}
};

}  // namespace pyxis
