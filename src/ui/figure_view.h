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
  // The control keeps the proportions of the figures, so that stretching distorts none.
  QSize sizeHint() const override { return {kWidth, heightForWidth(kWidth)}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return width * 300 / 460; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  static constexpr int kWidth = 320;
  std::string path_;
  QPixmap figure_;
};

}  // namespace pyxis::ui
