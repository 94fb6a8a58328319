#include "ui/hex_glyphs.h"

#include <QFontMetrics>
#include <QPainter>

namespace pyxis::ui {

HexGlyphs::HexGlyphs(const QFont& font) : font_(QRawFont::fromFont(font)), ascent_(QFontMetrics(font).ascent()) {
  for (char c = '!'; c <= '~'; ++c) {
    const auto found = font_.glyphIndexesForString(QString(QLatin1Char(c)));
    if (!found.isEmpty()) index_[static_cast<std::size_t>(c)] = found.front();
  }
}

void HexGlyphs::Add(std::string_view text, int x, int top, int cellWidth) {
  for (const char c : text) {
    if (c != ' ') {
      glyphs_.append(index_.at(static_cast<std::size_t>(c)));
      places_.append(QPointF(x, top + ascent_));
    }
    x += cellWidth;
  }
}

void HexGlyphs::Draw(QPainter& painter) {
  if (glyphs_.isEmpty()) return;
  QGlyphRun run;
  run.setRawFont(font_);
  run.setGlyphIndexes(glyphs_);
  run.setPositions(places_);
  painter.drawGlyphRun(QPointF(0, 0), run);
  glyphs_.clear();
  places_.clear();
}

}  // namespace pyxis::ui
