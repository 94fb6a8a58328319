// The window of IC Type Select.
#pragma once

#include <QDialog>
#include <cstdint>

#include "catalogue/ic_select.h"
#include "ui/dialog_mirror.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace pyxis {
class CIcSelectDlg;
}

namespace pyxis::ui {

class ChoiceList;

class IcSelectWindow : public QDialog {
 public:
  IcSelectWindow(CIcSelectDlg& dialog, QWidget* parent);

 private:
  QLayout* MakeLists();
  QLayout* MakeChosen();
  QLayout* MakeChoices();
  void Sync();
  void SyncLists();
  void OnTyped(const QString& text);

  CIcSelectDlg& dialog_;
  DialogMirror<CIcSelectDlg> mirror_{dialog_};
  ChoiceList *series_, *types_;
  QLabel *seriesCaption_, *chipName_;
  QCheckBox *displaySerial_, *exhvIsp_, *isp_, *massProduction_, *productionLimit_;
  QLineEdit* limit_;
  std::uint32_t typedAt_ = 0;  // the last character of a name
};

}  // namespace pyxis::ui
