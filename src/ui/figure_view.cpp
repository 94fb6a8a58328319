#include "ui/figure_view.h"

#include <QPainter>

#include "platform/files.h"
#include "ui/qt_text.h"

namespace pyxis::ui {

FigureView::FigureView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setMinimumWidth(kWidth);
}

void FigureView::ShowFigure(const std::string& path) {
  if (path == path_) return;
  path_ = path;
  figure_ = path.empty() ? QPixmap() : QPixmap(FromText(ResolvePath(path)));
  update();
}

void FigureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (figure_.isNull()) return;
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect().adjusted(1, 1, -1, -1), figure_);
}

}  // namespace pyxis::ui
