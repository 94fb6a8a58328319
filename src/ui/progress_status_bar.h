// The status bar: pane 0 with the progress bar over it, pane 1 with the link status.
#pragma once

#include <QStatusBar>

class QLabel;
class QProgressBar;

namespace pyxis::ui {

class ProgressStatusBar : public QStatusBar {
 public:
  explicit ProgressStatusBar(QWidget* parent);
  void Sync();
  bool ShowsProgress() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void LayOut();
  QLabel* pane0_;
  QLabel* icon_;
  QLabel* pane1_;
  QLabel* note_;  // why a writer that is plugged in isn't connected, at the end of pane 0
  QProgressBar* progress_;
  int iconShown_ = -1;
};

}  // namespace pyxis::ui
