// The window of the hex view: it measures the font, paints the model's lines and hands events to it.
#pragma once

#include <QAbstractScrollArea>
#include <QPoint>

#include "ui/dialog_mirror.h"
#include "view/hex_view.h"

class QPainter;

namespace pyxis::ui {

class HexGlyphs;

class HexViewWidget : public QAbstractScrollArea {
 public:
  explicit HexViewWidget(CMiniHexEditView& view, QWidget* parent = nullptr);
  ~HexViewWidget() override;
  // The model changed.
  void Refresh();
  // Ctrl+G.
  std::function<void()> GotoAsked = [] {};
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent*) override { seen_ = false; }
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent*) override {}
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool) override { return false; }  // Tab stays here
  bool event(QEvent* event) override;

 private:
  void Measure();
  void SizeChanged();
  void SyncScrollBar();
  void PaintLines(QPainter& painter);
  void PaintCaret(QPainter& painter);

  CMiniHexEditView& view_;
  DialogMirror<CMiniHexEditView> mirror_{view_};
  std::unique_ptr<HexGlyphs> glyphs_;
  bool seen_ = false;     // painted since it was shown: from then on a resize is a change of size
  bool pressed_ = false;  // by the left button
  QPoint pressedAt_;
  int wheelRest_ = 0;
};

}  // namespace pyxis::ui
