// The window of the hex view shows its model: every cell, the highlight, the caret and the scroll bar, after keys,
// clicks, drags, the wheel and the bar.
#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>

#include "support/bench.h"
#include "ui/hex_view_widget.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

constexpr int kLines = 10;
constexpr int kSize = 1000;

class HexViewWindow : public Bench {
 protected:
  HexViewWindow() {
    ConfigureHexView();
    Bytes bytes(kSize);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
    Write("bytes", bytes);
    widget.resize(80 * cell + 40, kLines * line + line / 2);
  }
  void Show() {
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.activateWindow();
    QCoreApplication::processEvents();
  }
  // Cells and lines from 0.
  QPoint At(int column, int row) const { return {column * cell + 1, row * line + 1}; }
  void Click(int column, int row, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(port, Qt::LeftButton, modifiers, At(column, row));
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
  }
  void Wheel(int delta) {
    QWheelEvent event(At(1, 1), port->mapToGlobal(At(1, 1)), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(port, &event);
  }
  void Bar(QAbstractSlider::SliderAction action, int position = -1) {
    QScrollBar& bar = *widget.verticalScrollBar();
    if (position >= 0) bar.setSliderPosition(position);
    bar.triggerAction(action);
  }

  QImage Blank() const {
    QImage image(port->size() * port->devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(port->devicePixelRatioF());
    image.fill(widget.palette().color(QPalette::Base));
    return image;
  }
  // What the view has to show, letter by letter.
  QImage Expected() const {
    QImage image = Blank();
    QPainter painter(&image);
    painter.setFont(widget.font());
    const auto draw = [&](int column, int row, const QString& text, bool marked) {
      const QRect place(column * cell, row * line, cell * static_cast<int>(text.size()), line);
      if (marked) painter.fillRect(place, widget.palette().color(QPalette::Highlight));
      painter.setPen(widget.palette().color(marked ? QPalette::HighlightedText : QPalette::Text));
      for (int i = 0; i < text.size(); ++i)
        painter.drawText((column + i) * cell, row * line + widget.fontMetrics().ascent(), text.mid(i, 1));
    };
    const int from = std::min(view.selection.SelStart, view.selection.SelEnd);
    const int to = std::max(view.selection.SelStart, view.selection.SelEnd);
    const int perLine = static_cast<int>(view.geometry.m_lpr);
    for (int row = 0; row < kLines; ++row) {
      const int first = view.geometry.TopOffset + row * perLine;
      if (first >= view.DataLength()) break;
      draw(0, row, QString::asprintf("%08X", first), false);
      for (int i = 0; i < perLine && first + i < view.DataLength(); ++i) {
        const int byte = view.Data[static_cast<std::size_t>(first + i)];
        const bool marked = from >= 0 && first + i >= from && first + i < to;
        draw(9 + 3 * i, row, QString::asprintf("%02X ", byte), marked && view.caret.CurrentArea == 2);
        draw(9 + 3 * perLine + i, row, byte > 31 && byte < 127 ? QString(QChar(byte)) : ".",
             marked && view.caret.CurrentArea == 1);
      }
    }
    const int row = (view.caret.CurrentOffset - view.geometry.TopOffset) / perLine;
    const int column = (view.caret.CurrentOffset - view.geometry.TopOffset) % perLine;
    if (!widget.hasFocus() || from >= 0 || view.caret.CurrentOffset < view.geometry.TopOffset || row > kLines)
      return image;
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    const int area = view.caret.CurrentArea;
    const int at = area == 0 ? 0 : area == 1 ? 9 + 3 * perLine + column : 9 + 3 * column + 2 - view.caret.Nibble;
    painter.fillRect(at * cell, row * line, (area == 0 ? 8 : 1) * cell, line, Qt::white);
    return image;
  }
  QImage Shown() const { return port->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied); }

  CMiniHexEditView& view = TheHexView();
  ui::HexViewWidget widget{view};
  QWidget* port = widget.viewport();
  const int cell = QFontMetrics(widget.font()).horizontalAdvance(QLatin1Char('0'));
  const int line = QFontMetrics(widget.font()).height();
};

TEST_F(HexViewWindow, ShowsItsModelAfterEveryEvent) {
  Show();
  ShowFile(Path("bytes"));
  widget.setFocus();
  Shown();
  const auto drag = [this] {
    QTest::mousePress(port, Qt::LeftButton, {}, At(9, 0));
    QTest::mouseMove(port, At(9 + 3 * 3, 2));
    QTest::mouseRelease(port, Qt::LeftButton, {}, At(9 + 3 * 3, 2));
    QTest::mouseMove(port, At(9, 5));  // no button any more
  };
  const auto cut = [this] {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::ControlModifier, QStringLiteral("\x18"));
    QApplication::sendEvent(&widget, &key);
  };
  using A = QAbstractSlider;
  struct Step {
    std::function<void()> act;
    int top, current, start, end, length = kSize;
  };
  // clang-format off
  const Step steps[] = {
      {[&] { Click(15, 1); }, 0, 18, -1, -1},
      {[&] { QTest::keyClicks(&widget, "a"); }, 0, 18, -1, -1},
      {[&] { Key(Qt::Key_Right, Qt::ShiftModifier); }, 0, 19, 18, 20},
      {[&] { Key(Qt::Key_Left); }, 0, 18, -1, -1},
      {[&] { Key(Qt::Key_Down); }, 0, 34, -1, -1},
      {[&] { Key(Qt::Key_Up); }, 0, 18, -1, -1},
      {[&] { Key(Qt::Key_End); }, 0, 31, -1, -1},
      {[&] { Key(Qt::Key_Home); }, 0, 16, -1, -1},
      {[&] { Key(Qt::Key_PageDown); }, 144, 16, -1, -1},  // the view comes a line back to the caret
      {[&] { Wheel(-120); }, 176, 16, -1, -1},
      {[&] { Wheel(-30); }, 176, 16, -1, -1},  // half a line
      {[&] { Wheel(-30); }, 192, 16, -1, -1},  // and the other half
      {[&] { Wheel(180); }, 144, 16, -1, -1},
      {[&] { Key(Qt::Key_PageUp); }, 0, 16, -1, -1},
      {[&] { Key(Qt::Key_End, Qt::ControlModifier); }, 840, 999, -1, -1},
      {drag, 840, 875, 840, 876},
      {[&] { Bar(A::SliderSingleStepSub); }, 824, 859, 840, 876},
      {[&] { Bar(A::SliderSingleStepAdd); }, 840, 875, 840, 876},
      {[&] { Bar(A::SliderSingleStepAdd); }, 840, 875, 840, 876},
      {[&] { Bar(A::SliderPageStepSub); }, 680, 715, 840, 876},
      {[&] { Bar(A::SliderPageStepAdd); }, 840, 875, 840, 876},
      {[&] { Bar(A::SliderMove, 3); }, 48, 83, 840, 876},
      {cut, 48, 83, -1, -1, kSize - 36},
      {[&] { Key(Qt::Key_Home, Qt::ControlModifier); }, 0, 0, -1, -1, kSize - 36},
      {[&] { Click(57 + 5, 2); }, 0, 37, -1, -1, kSize - 36},
      {[&] { QTest::keyClicks(&widget, "Z"); }, 0, 38, -1, -1, kSize - 36},
      {[&] { Click(57 + 2, 3, Qt::ShiftModifier); }, 0, 50, 38, 50, kSize - 36},
      {[&] { for (const int key : {Qt::Key_Tab, Qt::Key_Backspace}) Key(key); }, 0, 50, 38, 50, kSize - 36},
      {[&] { for (const int key : {Qt::Key_Delete, Qt::Key_Escape}) Key(key); }, 0, 50, 38, 50, kSize - 36},
      {[&] { QTest::mouseDClick(port, Qt::LeftButton, {}, At(15, 1)); }, 0, 50, 38, 50, kSize - 36},
      {[&] { QTest::mouseClick(port, Qt::RightButton, {}, At(15, 3)); }, 0, 50, 38, 50, kSize - 36},
      {[&] { Click(3, 4); }, 0, 64, -1, -1, kSize - 36},
      {[&] { Key(Qt::Key_Q, Qt::AltModifier); }, 0, 64, -1, -1, kSize - 36},
      {[&] { widget.clearFocus(); }, 0, 64, -1, -1, kSize - 36}};
  // clang-format on
  int number = 0;
  for (const Step& step : steps) {
    SCOPED_TRACE(number++);
    step.act();
    EXPECT_EQ(All(view.geometry.TopOffset, view.caret.CurrentOffset, view.DataLength()),
              All(step.top, step.current, step.length));
    EXPECT_EQ(All(view.selection.SelStart, view.selection.SelEnd), All(step.start, step.end));
    EXPECT_EQ(Shown(), Expected());
    const QScrollBar& bar = *widget.verticalScrollBar();
    EXPECT_EQ(All(bar.isEnabled(), bar.minimum(), bar.maximum(), bar.pageStep(), bar.value()),
              All(true, 0, step.length / 16 - kLines + 1, kLines, step.top / 16));
  }
  EXPECT_EQ(All(view.Data[18], view.Data[37]), All(0xAE, 'Z'));
}

TEST_F(HexViewWindow, ClearedItIsBlankAndTakesNothing) {
  Show();
  ShowFile(Path("bytes"));
  ShowFile("");
  widget.setFocus();
  int asked = 0;
  widget.GotoAsked = [&] { ++asked; };
  Click(15, 1);
  QTest::keyClicks(&widget, "ff");
  Wheel(-1200);
  Key(Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(All(view.geometry.TopOffset, view.caret.CurrentOffset, asked), All(0, 0, 1));
  EXPECT_EQ(Shown(), Blank());
  EXPECT_FALSE(widget.verticalScrollBar()->isEnabled());
  EXPECT_EQ(view.Data, Contents("bytes"));
}

// Being laid out, hidden and shown isn't a change of size: only the operator's resizing changes the bytes a line.
TEST_F(HexViewWindow, OnlyAResizeOfAWindowThatIsSeenCounts) {
  const std::string key = "Application state\\Dockbar\\-SCBar-0/m_lpr";
  Show();
  ShowFile(Path("bytes"));
  Shown();
  EXPECT_EQ(view.geometry.m_lpr, 16U);  // a first start
  profile.values[key] = 12;
  ShowFile(Path("bytes"));
  EXPECT_EQ(view.geometry.m_lpr, 12U);
  widget.hide();
  widget.resize(widget.width() + 20 * cell, widget.height());
  Show();
  Shown();
  EXPECT_EQ(All(view.geometry.m_lpr, profile.values[key]), All(12U, 12));
  widget.resize(widget.width() + (9 + 4 * 20) * cell - port->width(), widget.height());
  QCoreApplication::processEvents();
  EXPECT_EQ(All(view.geometry.m_lpr, profile.values[key]), All(20U, 20));
  EXPECT_EQ(Shown(), Expected());
}

}  // namespace
}  // namespace pyxis::test
