#include "ui/hex_view_widget.h"

#include <QApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <optional>

#include "ui/hex_glyphs.h"
#include "view/hex_picture.h"

namespace pyxis::ui {

namespace {

constexpr int kPointSize = 10;
constexpr int kHintBytes = 16, kHintLines = 20;

std::optional<HexKey> KeyOf(int key) {
  switch (key) {
    case Qt::Key_PageUp:
      return HexKey::PageUp;
    case Qt::Key_PageDown:
      return HexKey::PageDown;
    case Qt::Key_Home:
      return HexKey::Home;
    case Qt::Key_End:
      return HexKey::End;
    case Qt::Key_Left:
      return HexKey::Left;
    case Qt::Key_Right:
      return HexKey::Right;
    case Qt::Key_Up:
      return HexKey::Up;
    case Qt::Key_Down:
      return HexKey::Down;
    default:
      return std::nullopt;
  }
}

HexModifiers ModifiersOf(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier)};
}

}  // namespace

HexViewWidget::HexViewWidget(CMiniHexEditView& view, QWidget* parent) : QAbstractScrollArea(parent), view_(view) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(kPointSize);
  font.setStyleHint(QFont::Monospace);
  setFont(font);
  glyphs_ = std::make_unique<HexGlyphs>(this->font());
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::ClickFocus);
  viewport()->setCursor(Qt::IBeamCursor);
  setAccessibleName(QStringLiteral("Buffer"));
  mirror_.Show([this] { Refresh(); });
  QScrollBar* bar = verticalScrollBar();
  connect(bar, &QScrollBar::actionTriggered, this, [this, bar](int action) {
    switch (action) {
      case QAbstractSlider::SliderSingleStepAdd:
        view_.Scroll(HexScroll::LineDown);
        break;
      case QAbstractSlider::SliderSingleStepSub:
        view_.Scroll(HexScroll::LineUp);
        break;
      case QAbstractSlider::SliderPageStepAdd:
        view_.Scroll(HexScroll::PageDown);
        break;
      case QAbstractSlider::SliderPageStepSub:
        view_.Scroll(HexScroll::PageUp);
        break;
      default:
        view_.Scroll(HexScroll::ThumbTrack, bar->sliderPosition());
        break;
    }
    bar->setSliderPosition(view_.ScrollBar().position);
  });
}

HexViewWidget::~HexViewWidget() = default;

QSize HexViewWidget::sizeHint() const {
  const QFontMetrics metrics(font());
  HexGeometry shown;  // the main window's, which isn't set up yet when it asks
  shown.WideAddress = true;
  const int cells = shown.AddressCells() + kHintBytes * (shown.DigitsPerByte + 2) + 1;  // in all three columns
  return {
      cells * metrics.horizontalAdvance(QLatin1Char('0')) + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
      kHintLines * metrics.height()};
}

void HexViewWidget::Measure() {
  const QFontMetrics metrics(font());
  view_.Measure(metrics.horizontalAdvance(QLatin1Char('0')), metrics.height());
}

void HexViewWidget::Refresh() {
  SyncScrollBar();
  viewport()->update();
}

void HexViewWidget::SyncScrollBar() {
  const HexScrollBar shown = view_.ScrollBar();
  QScrollBar* bar = verticalScrollBar();
  bar->setEnabled(shown.enabled);
  bar->setPageStep(std::max(shown.page, 1));
  bar->setRange(0, shown.enabled ? shown.range - shown.page + 1 : 0);
  bar->setValue(shown.position);
}

void HexViewWidget::SizeChanged() {
  Measure();
  view_.OnSize(viewport()->width(), viewport()->height(), seen_);
}

void HexViewWidget::resizeEvent(QResizeEvent*) { SizeChanged(); }

void HexViewWidget::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  SizeChanged();
}

void HexViewWidget::paintEvent(QPaintEvent*) {
  seen_ = isVisible();
  QPainter painter(viewport());
  Measure();
  const bool columnsMoved = view_.geometry.Recalc;
  if (!view_.PreparePaint()) return;
  if (columnsMoved) SyncScrollBar();
  PaintLines(painter);
  PaintCaret(painter);
}

void HexViewWidget::PaintLines(QPainter& painter) {
  const int lines = HexLineCount(view_);
  const int cell = view_.geometry.CharWidth;
  const bool inHex = view_.caret.CurrentArea == kHexArea;
  const int perByte = inHex ? view_.geometry.DigitsPerByte + 1 : 1;
  const int column = inHex ? view_.geometry.HexColumnX : view_.geometry.AsciiColumnX;
  HexLine line;
  HexGlyphs selected(*glyphs_);
  for (int i = 0; i < lines; ++i) {
    FormatHexLine(view_, i, line);
    const int top = i * view_.geometry.LineHeight;
    glyphs_->Add(line.address, 0, top, cell);
    std::string& text = inHex ? line.hex : line.ascii;
    if (line.selectedTo > line.selectedFrom) {
      const auto from = static_cast<std::size_t>(line.selectedFrom * perByte);
      const auto count = static_cast<std::size_t>((line.selectedTo - line.selectedFrom) * perByte);
      const int x = column + static_cast<int>(from) * cell;
      painter.fillRect(x, top, static_cast<int>(count) * cell, view_.geometry.LineHeight,
                       palette().color(QPalette::Highlight));
      selected.Add(std::string_view(text).substr(from, count), x, top, cell);
      text.replace(from, count, count, ' ');
    }
    glyphs_->Add(line.hex, view_.geometry.HexColumnX, top, cell);
    glyphs_->Add(line.ascii, view_.geometry.AsciiColumnX, top, cell);
  }
  painter.setPen(palette().color(QPalette::Text));
  glyphs_->Draw(painter);
  painter.setPen(palette().color(QPalette::HighlightedText));
  selected.Draw(painter);
}

void HexViewWidget::PaintCaret(QPainter& painter) {
  if (!hasFocus() || view_.selection.Exists() || !view_.CaretVisible()) return;
  painter.setCompositionMode(QPainter::CompositionMode_Difference);
  painter.fillRect(view_.caret.CaretX, view_.caret.CaretY, view_.caret.Width(view_.geometry), view_.geometry.LineHeight,
                   Qt::white);
}

void HexViewWidget::wheelEvent(QWheelEvent* event) {
  // Fine wheels send parts of a notch; what doesn't make a line yet waits for the next part.
  wheelRest_ += event->angleDelta().y();
  const int whole = wheelRest_ / kWheelUnit * kWheelUnit;
  wheelRest_ -= whole;
  if (whole != 0) view_.OnMouseWheel(whole);
  event->accept();
}

bool HexViewWidget::event(QEvent* event) {
  // What the view takes must not go to a menu or a default button first.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (!key->modifiers().testFlag(Qt::AltModifier)) {
      event->accept();
      return true;
    }
  }
  return QAbstractScrollArea::event(event);
}

void HexViewWidget::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers().testFlag(Qt::AltModifier)) {
    event->ignore();
    return;
  }
  const HexModifiers modifiers = ModifiersOf(event->modifiers());
  if (const auto key = KeyOf(event->key())) {
    view_.OnKeyDown(*key, modifiers);
  } else if (modifiers.control && event->key() == Qt::Key_G) {
    GotoAsked();
  } else if (event->key() != Qt::Key_Delete && event->key() != Qt::Key_Escape) {  // keys, though Qt gives them texts
    for (const char32_t character : event->text().toUcs4()) view_.OnChar(character, modifiers);
  }
  event->accept();
}

void HexViewWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = true;
  pressedAt_ = event->pos();
  view_.OnLButtonDown(event->pos().x(), event->pos().y(), event->modifiers().testFlag(Qt::ShiftModifier));
}

void HexViewWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!pressed_ || !event->buttons().testFlag(Qt::LeftButton)) return;  // the press may have been dropped
  if (!view_.selection.Exists() && (event->pos() - pressedAt_).manhattanLength() >= QApplication::startDragDistance())
    view_.OnDragStart();
  view_.OnMouseMove(event->pos().x(), event->pos().y());
}

void HexViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pressed_ = false;
}

void HexViewWidget::mouseDoubleClickEvent(QMouseEvent*) {}

void HexViewWidget::focusInEvent(QFocusEvent*) { viewport()->update(); }
void HexViewWidget::focusOutEvent(QFocusEvent*) { viewport()->update(); }

}  // namespace pyxis::ui
