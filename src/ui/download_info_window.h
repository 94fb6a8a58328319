// The window of Compare File.
#pragma once

#include "operations/compare_file.h"
#include "ui/dialog_mirror.h"
#include "ui/lines_window.h"

namespace pyxis {
class CDownloadInfoDlg;
}

namespace pyxis::ui {

class DownloadInfoWindow : public LinesWindow {
 public:
  DownloadInfoWindow(CDownloadInfoDlg& dialog, HandlerGate& gate, QWidget* parent);

 private:
  void Sync();
  CDownloadInfoDlg& dialog_;
  DialogMirror<CDownloadInfoDlg> mirror_{dialog_};
};

}  // namespace pyxis::ui
