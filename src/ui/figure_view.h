// The package figure, stretched to the picture control.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <string>

namespace pyxis::ui {

class FigureView : public QWidget {
 public:
  explicit FigureView(QWidget* parent = nullptr);
  // Path of a bitmap, empty for none. One that can't be read leaves the picture empty.
  void ShowFigure(const std::string& path);
  QSize sizeHint() const override { return {300, 200}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::string path_;
  QPixmap figure_;
};

}  // namespace pyxis::ui
