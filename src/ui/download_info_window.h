// The window of Compare File.
#pragma once

#include "ui/lines_window.h"

namespace pyxis {
class CDownloadInfoDlg;
}

namespace pyxis::ui {

class DownloadInfoWindow : public LinesWindow {
 public:
  DownloadInfoWindow(CDownloadInfoDlg& dialog, QWidget* parent);
  ~DownloadInfoWindow() override;

 private:
  void Sync();
  CDownloadInfoDlg& dialog_;
};

}  // namespace pyxis::ui
