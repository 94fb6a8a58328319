// The main window's client area: fields, hex view and buffer area in one place, fuse group, figure, buttons.
#pragma once

#include <QWidget>
#include <functional>

#include "ui/control_mirror.h"

class QBoxLayout;
class QGridLayout;
class QStackedWidget;

namespace pyxis::ui {

class FigureView;
class HexViewWidget;
class VerdictLabel;

class MainPanel : public QWidget {
 public:
  explicit MainPanel(QWidget* parent);
  void Sync();
  bool Focus(ControlId id);  // false when it can't have it now
  HexViewWidget& Hex() { return *hex_; }

  std::function<void(ControlId)> Pressed = [](ControlId) {};
  std::function<void(int, int)> MouseMoved = [](int, int) {};
  std::function<bool()> DropsMousePress = [] { return false; };

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QLayout* MakeFields();
  QLayout* MakeModeLabels();
  QWidget* MakeBuffer();
  QWidget* MakeFuseGroup();
  QLayout* MakeFigure();
  QLayout* MakeButtons();
  void AddField(QGridLayout& grid, int column, const char* caption, ControlId id, const char* name);
  void AddButton(QBoxLayout& row, ControlId id, const char* caption, const char* tip);

  ControlMirror controls_;
  QStackedWidget* stack_ = nullptr;
  HexViewWidget* hex_ = nullptr;
  FigureView* figure_ = nullptr;
  VerdictLabel* verdict_ = nullptr;
};

}  // namespace pyxis::ui
