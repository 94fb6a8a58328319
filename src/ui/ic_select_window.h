// The window of IC Type Select.
#pragma once

#include <QDialog>

#include "ui/dialog_mirror.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace pyxis {
class CIcSelectDlg;
}

namespace pyxis::ui {

class IcSelectWindow : public QDialog {
 public:
  IcSelectWindow(CIcSelectDlg& dialog, QWidget* parent);

 private:
  QLayout* MakeLists();
  QLayout* MakeChosen();
  QLayout* MakeChoices();
  void Sync();
  void SyncLists();

  CIcSelectDlg& dialog_;
  DialogMirror<CIcSelectDlg> mirror_{dialog_};
  QListWidget *series_, *types_;
  QLabel *seriesCaption_, *chipName_;
  QCheckBox *displaySerial_, *exhvIsp_, *isp_, *massProduction_, *productionLimit_;
  QLineEdit* limit_;
};

}  // namespace pyxis::ui
