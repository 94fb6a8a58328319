#include "ui/figure_view.h"

#include <QPainter>

#include "platform/files.h"
#include "ui/qt_text.h"

namespace pyxis::ui {

FigureView::FigureView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(180, 120);
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
  const QSize size = figure_.size().scaled(this->size() - QSize(2, 2), Qt::KeepAspectRatio);
  painter.drawPixmap(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size), figure_);
}

}  // namespace pyxis::ui
