// The window of the hex view shows its model: every cell, the highlight, the caret and the scroll bar, after keys,
// clicks, drags, the wheel and the bar.
#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>

#include "data/cases.h"
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
  void Key(const std::string& name) {
    const QKeyCombination key = QKeySequence(QString::fromStdString(name))[0];
    QTest::keyClick(&widget, key.key(), key.keyboardModifiers());
  }
  void Wheel(int delta) {
    QWheelEvent event(At(1, 1), port->mapToGlobal(At(1, 1)), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(port, &event);
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
  Script script;
  using Line = const Case&;
  const auto number = [](Line c, std::size_t i) { return static_cast<int>(c.Number(i)); };
  script.actions["click"] = [&](Line c) {
    Click(number(c, 1), number(c, 2), c[3] == "shift" ? Qt::ShiftModifier : Qt::NoModifier);
  };
  script.actions["right click"] = [&](Line) { QTest::mouseClick(port, Qt::RightButton, {}, At(15, 3)); };
  script.actions["double click"] = [&](Line) { QTest::mouseDClick(port, Qt::LeftButton, {}, At(15, 1)); };
  script.actions["drag"] = [&](Line) {
    QTest::mousePress(port, Qt::LeftButton, {}, At(9, 0));
    QTest::mouseMove(port, At(9 + 3 * 3, 2));
    QTest::mouseRelease(port, Qt::LeftButton, {}, At(9 + 3 * 3, 2));
    QTest::mouseMove(port, At(9, 5));  // no button any more
  };
  script.actions["type"] = [&](Line c) { QTest::keyClicks(&widget, QString::fromStdString(c[1])); };
  script.actions["key"] = [&](Line c) { Key(c[1]); };
  script.actions["cut"] = [&](Line) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::ControlModifier, QStringLiteral("\x18"));
    QApplication::sendEvent(&widget, &key);
  };
  script.actions["wheel"] = [&](Line c) { Wheel(number(c, 1)); };
  script.actions["bar"] = [&](Line c) {
    QScrollBar& bar = *widget.verticalScrollBar();
    if (c.cells.size() > 2) bar.setSliderPosition(number(c, 2));
    bar.triggerAction(static_cast<QAbstractSlider::SliderAction>(number(c, 1)));
  };
  script.actions["lose focus"] = [&](Line) { widget.clearFocus(); };
  script.states["top"] = [&] { return std::to_string(view.geometry.TopOffset); };
  script.states["at"] = [&] { return std::to_string(view.caret.CurrentOffset); };
  script.states["selected"] = [&] {
    return std::to_string(view.selection.SelStart) + "-" + std::to_string(view.selection.SelEnd);
  };
  script.states["length"] = [&] { return std::to_string(view.DataLength()); };
  for (const std::size_t at : {18U, 37U})
    script.states["byte " + std::to_string(at)] = [=, this] { return std::to_string(view.Data[at]); };
  script.after = [&] {
    EXPECT_EQ(Shown(), Expected());
    const QScrollBar& bar = *widget.verticalScrollBar();
    EXPECT_EQ(All(bar.isEnabled(), bar.minimum(), bar.maximum(), bar.pageStep(), bar.value()),
              All(true, 0, view.DataLength() / 16 - kLines + 1, kLines, view.geometry.TopOffset / 16));
  };
  script.Run("hex_view_window.tsv", "events");
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
  Key("Ctrl+G");
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
