// The desktop's style, with outlines of boxes and radio buttons that can be seen on its background.
#pragma once

#include <QCheckBox>
#include <QProxyStyle>

namespace pyxis::ui {

// Contrast of two colours, 1 to 21, as the accessibility guidelines of the web define it.
double ContrastOf(const QColor& one, const QColor& other);

class ReadableStyle : public QProxyStyle {
 public:
  explicit ReadableStyle(const QString& base = {});
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

// A box that only shows something: it takes no click and is as readable as one that does.
class ShownBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;
};

}  // namespace pyxis::ui
