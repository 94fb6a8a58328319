// Text of one-cell characters drawn at exact cell places: all glyphs of a colour go out in one run.
#pragma once

#include <QGlyphRun>
#include <QRawFont>
#include <array>
#include <string_view>

class QPainter;

namespace pyxis::ui {

class HexGlyphs {
 public:
  explicit HexGlyphs(const QFont& font);
  // `x`, `top` of the first cell; blanks take a cell and draw nothing.
  void Add(std::string_view text, int x, int top, int cellWidth);
  void Draw(QPainter& painter);  // in the painter's pen colour, and forgets them

 private:
  QRawFont font_;
  int ascent_;
  std::array<quint32, 128> index_{};
  QList<quint32> glyphs_;
  QList<QPointF> places_;
};

}  // namespace pyxis::ui
