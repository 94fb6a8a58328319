#include "ui/download_info_window.h"

#include "operations/compare_file.h"

namespace pyxis::ui {

DownloadInfoWindow::DownloadInfoWindow(CDownloadInfoDlg& dialog, QWidget* parent)
    : LinesWindow(QStringLiteral("Download File Information"), dialog.lines.size(), QStringLiteral("Compare File"),
                  parent),
      dialog_(dialog) {
  Action = [this] { dialog_.OnCompareFile(); };
  dialog_.Changed = [this] { Sync(); };
  Sync();
}

DownloadInfoWindow::~DownloadInfoWindow() {
  dialog_.Changed = [] {};
}

void DownloadInfoWindow::Sync() { Show(dialog_.lines, dialog_.compareEnabled, dialog_.cancelEnabled); }

}  // namespace pyxis::ui
