#include "ui/download_info_window.h"

#include "operations/compare_file.h"

namespace pyxis::ui {

DownloadInfoWindow::DownloadInfoWindow(CDownloadInfoDlg& dialog, HandlerGate& gate, QWidget* parent)
    : LinesWindow(QStringLiteral("Download File Information"), dialog.lines.size(), QStringLiteral("Compare File"),
                  gate, parent),
      dialog_(dialog) {
  Action = [this] { dialog_.OnCompareFile(); };
  mirror_.Show([this] { Sync(); });
}

void DownloadInfoWindow::Sync() { Show(dialog_.lines, dialog_.compareEnabled, dialog_.cancelEnabled); }

}  // namespace pyxis::ui
