// The window of Smart Option: painted captions and disabled lists.
#pragma once

#include <QDialog>
#include <vector>

#include "options/option_window.h"

class QComboBox;
class QPainter;

namespace pyxis {
class CSmartOptionDlg;
}

namespace pyxis::ui {

class SmartOptionWindow : public QDialog, public OptionWindow {
 public:
  SmartOptionWindow(CSmartOptionDlg& dialog, QWidget* parent);

  int VerticalBaseUnit() override;
  int TextWidth(const std::string& text) override;
  OptionRect Placement() override;
  void Place(const OptionRect& placement) override;
  int ClientHeight() override;
  void SetTitle(const std::string& title) override;
  OptionListHandle CreateList(const OptionRect& rect, const std::string& name) override;
  void FillList(OptionListHandle list, const std::vector<std::string>& alternatives, int selection) override;
  void DrawLabel(int x, int y, const std::string& text, OptionColor color) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  CSmartOptionDlg& dialog_;
  std::vector<QComboBox*> lists_;
  QPainter* painter_ = nullptr;  // while the window paints
};

}  // namespace pyxis::ui
