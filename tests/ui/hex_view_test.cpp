// The hex view: its model under real keys, clicks, drags, the wheel and the bar, and that the window shows it: every
// cell, the highlight, the caret and the scroll bar.
#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>

#include "data/cases.h"
#include "platform/text.h"
#include "ui/hex_view_widget.h"
#include "view/goto_address.h"
#include "view/hex_picture.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

constexpr int kLines = 10;

class HexView : public Bench, public ::testing::WithParamInterface<std::string> {
 protected:
  HexView() {
    ConfigureHexView();
    widget.GotoAsked = [this] { ++asked; };
    Bytes bytes(1000);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
    Write("bytes", bytes);
    widget.resize(80 * cell + 40, kLines * line + line / 2);
    port->installEventFilter(&paints);
    DefineActions();
    DefineStates();
  }
  void Show() {
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    widget.activateWindow();
    QCoreApplication::processEvents();
  }
  // A window of 16 bytes a line, with a buffer that counts up.
  void Open(std::size_t size) {
    Show();
    widget.resize(widget.size() + QSize(73 * cell, kLines * line) - port->size());
    view.OnSize(port->width(), port->height(), true);
    auto data = view.SetSize(size);
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<std::uint8_t>(i);
    view.PreparePaint();
    view.Changed();
  }
  void Dialog(const std::string& typed) {
    op.gotoAddress = [&](CGotoAddressDlg& dialog) {
      EXPECT_EQ(dialog.text, "00000");
      EXPECT_NE(typed, "none") << "nothing to go to";
      dialog.OnChange(typed);
      return typed == "cancel" ? DialogEnd::Cancel : DialogEnd::Ok;
    };
    OnGotoAddress(view);
  }
  void Key(const std::string& name) {
    const QKeyCombination key = QKeySequence(QString::fromStdString(name))[0];
    QTest::keyClick(&widget, key.key(), key.keyboardModifiers());
  }
  void Char(char32_t character, bool control) {
    const int key = static_cast<int>(character) + (control ? '@' : 0);
    QKeyEvent event(QEvent::KeyPress, key, control ? Qt::ControlModifier : Qt::NoModifier,
                    QString::fromUcs4(&character, 1));
    QApplication::sendEvent(&widget, &event);
  }
  void Wheel(int delta) {
    const QPoint at(1, 1);
    QWheelEvent event(at, port->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(port, &event);
  }
  void Bar(int action, std::optional<int> position) {
    QScrollBar& bar = *widget.verticalScrollBar();
    if (position) bar.setSliderPosition(*position);
    bar.triggerAction(static_cast<QAbstractSlider::SliderAction>(action));
  }

  // An action gets its words, and a function for their numbers.
  using Numbers = std::function<int(std::size_t)>;
  void On(const char* name, const std::function<void(const Case&, const Numbers&)>& act) {
    script.actions[name] = [act](const Case& c) {
      act(c, [&](std::size_t i) { return static_cast<int>(c.Number(i)); });
    };
  }
  void OnMouse(const char* name, const std::function<void(QPoint, const Case&)>& act) {
    On(name, [=, this](const Case& c, const Numbers& n) { act({n(1) * cell, n(2) * line}, c); });
  }
  void DefineActions() {
    const auto mouse = [this](auto act, Qt::MouseButton button) {
      return [=, this](QPoint at, const Case& c) {
        act(port, button, c[3] == "shift" ? Qt::ShiftModifier : Qt::NoModifier, at, -1);
      };
    };
    OnMouse("click", mouse([](auto... a) { QTest::mouseClick(a...); }, Qt::LeftButton));
    OnMouse("right click", mouse([](auto... a) { QTest::mouseClick(a...); }, Qt::RightButton));
    OnMouse("double click", mouse([](auto... a) { QTest::mouseDClick(a...); }, Qt::LeftButton));
    OnMouse("press", mouse([](auto... a) { QTest::mousePress(a...); }, Qt::LeftButton));
    OnMouse("release", mouse([](auto... a) { QTest::mouseRelease(a...); }, Qt::LeftButton));
    OnMouse("move", [this](QPoint at, const Case&) { QTest::mouseMove(port, at); });
    On("show", [this](auto&, auto&) {
      Show(), ShowFile(Path("bytes")), widget.setFocus(), picture = Shown(), pictures = true;
    });
    On("paint", [this](auto&, auto&) { view.PreparePaint(); });
    On("lose focus", [this](auto&, auto&) { widget.clearFocus(); });
    On("open", [this](auto&, auto& n) { Open(static_cast<std::size_t>(n(1))); });
    On("file", [this](auto& c, auto&) {
      if (!c[2].empty()) WriteText(c[1], c[2]);
      ShowFile(c[1].empty() ? "" : Path(c[1]));
      view.Changed();  // the main window hears of it from the program's view
    });
    On("columns", [this](auto& c, auto&) {
      view.SetOptions(c[1] != "ascii", c[1] != "ascii", c[1] != "hex", false, c[1] == "digits" ? 3 : 2);
    });
    On("size", [this](auto& c, auto& n) { view.OnSize(n(1) * cell + n(2), kLines * line, c[3] == "seen"); });
    On("bytes", [this](auto&, auto& n) { view.SetSize(static_cast<std::size_t>(n(1))); });
    On("profile", [this](auto&, auto& n) { profile.values[setting] = n(1); });
    On("top", [this](auto&, auto& n) { view.geometry.TopOffset = n(1); });
    On("caret", [this](auto&, auto& n) { view.caret.CurrentOffset = n(1); });
    On("select", [this](auto&, auto& n) { view.selection = {n(1), n(2)}, view.Changed(); });
    On("blank", [this](auto&, auto&) { view.Blanked = true; });
    // The columns stand where they stood until the next paint.
    On("double width without addresses",
       [this](auto&, auto&) { view.Measure(2 * cell, line), view.geometry.ShowAddress = false; });
    On("key", [this](auto& c, auto&) { Key(c[1]); });
    On("type", [this](auto& c, auto&) {
      for (const char typed : c[1]) Char(static_cast<unsigned char>(typed), false);
    });
    On("char", [this](auto& c, auto& n) { Char(static_cast<char32_t>(n(1)), c[2] == "ctrl"); });
    On("wheel", [this](auto&, auto& n) { Wheel(n(1)); });
    On("bar", [this](auto& c, auto& n) { Bar(n(1), c.cells.size() > 2 ? std::optional(n(2)) : std::nullopt); });
    On("thumb", [this](auto&, auto& n) { view.Scroll(HexScroll::ThumbTrack, n(1)); });
    On("go to", [this](auto&, auto& n) { view.GoTo(static_cast<std::uint32_t>(n(1))); });
    On("dialog", [this](auto& c, auto&) { Dialog(c[1]); });
  }
  void Shows(const std::string& name, const std::function<long()>& number) {
    script.states[name] = [number] { return std::to_string(number()); };
  }
  void DefineStates() {
    Shows("top", [this] { return view.geometry.TopOffset; });
    Shows("at", [this] { return view.caret.CurrentOffset; });
    Shows("inside", [this] { return view.caret.CurrentOffset >= 0; });
    Shows("area", [this] { return view.caret.CurrentArea; });
    Shows("nibble", [this] { return view.caret.Nibble; });
    Shows("cell", [this] { return view.caret.CaretX / cell; });
    Shows("row", [this] { return view.caret.CaretY / line; });
    Shows("wide", [this] { return view.caret.Width(view.geometry) / cell; });
    Shows("caret", [this] { return view.CaretVisible(); });
    Shows("focus", [this] { return widget.hasFocus(); });
    Shows("length", [this] { return view.DataLength(); });
    Shows("line bytes", [this] { return view.geometry.m_lpr; });
    Shows("kept", [this] { return profile.values[setting]; });
    Shows("asked", [this] { return asked; });
    Shows("lines", [this] { return view.PreparePaint() ? HexLineCount(view) : 0; });
    Shows("paints", [this] { return view.PreparePaint(); });
    Shows("partial", [this] { return view.geometry.LastLinePartial; });
    for (const std::size_t at : {0U, 1U, 4U, 0x12U, 0x1FU, 0x25U})
      Shows(Printf("byte %zX", at), [=, this] { return view.editing.Data[at]; });
    script.states["selected"] = [this] { return Printf("%d-%d", view.selection.SelStart, view.selection.SelEnd); };
    script.states["bar"] = [this] {
      const HexScrollBar bar = view.ScrollBar();
      return Printf("%d %d %d", bar.range, bar.page, bar.position) + (bar.enabled ? "" : " off");
    };
    for (const int number : {0, 1})
      script.states["line " + std::to_string(number)] = [=, this] {
        HexLine text;
        FormatHexLine(view, number, text);
        return text.address + "/" + text.hex.substr(0, 15) + "/" + text.ascii.substr(0, 5) +
               Printf("/%d-%d", text.selectedFrom, text.selectedTo);
      };
    script.after = [this] {
      if (!pictures) return;
      QCoreApplication::processEvents();
      const bool painted = std::exchange(paints.count, 0) > 0;
      const QImage before = std::exchange(picture, Shown());  // which paints as well
      EXPECT_EQ(picture, Expected());
      EXPECT_TRUE(picture == before || painted) << "the window isn't told to paint";
      paints.count = 0;
      const QScrollBar& bar = *widget.verticalScrollBar();
      const auto wanted = view.Blanked
                              ? All(false, 0, 0, 1, 0)
                              : All(true, 0, view.DataLength() / 16 - kLines + 1, kLines, view.geometry.TopOffset / 16);
      EXPECT_EQ(All(bar.isEnabled(), bar.minimum(), bar.maximum(), bar.pageStep(), bar.value()), wanted);
    };
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
    if (view.Blanked) return image;
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
        const int byte = view.editing.Data[static_cast<std::size_t>(first + i)];
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
  const std::string setting = "Application state\\Dockbar\\-SCBar-0/m_lpr";
  struct Paints : QObject {
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      count += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
  };
  Paints paints;  // of the window's own
  bool pictures = false;
  QImage picture;
  int asked = 0;  // for the address to go to
  Script script;
};

TEST_P(HexView, Follows) { script.Run("hex_view_scripts.tsv", GetParam()); }
INSTANTIATE_TEST_SUITE_P(Scripts, HexView, ::testing::ValuesIn(SectionsBut("hex_view_scripts.tsv", {})));

// Being laid out, hidden and shown isn't a change of size: only the operator's resizing changes the bytes a line.
TEST_F(HexView, OnlyAResizeOfAWindowThatIsSeenCounts) {
  Show();
  ShowFile(Path("bytes"));
  Shown();
  EXPECT_EQ(view.geometry.m_lpr, 16U);  // a first start
  profile.values[setting] = 12;
  ShowFile(Path("bytes"));
  EXPECT_EQ(view.geometry.m_lpr, 12U);
  widget.hide();
  widget.resize(widget.width() + 20 * cell, widget.height());
  Show();
  Shown();
  EXPECT_EQ(All(view.geometry.m_lpr, profile.values[setting]), All(12U, 12));
  widget.resize(widget.width() + (9 + 4 * 20) * cell - port->width(), widget.height());
  QCoreApplication::processEvents();
  EXPECT_EQ(All(view.geometry.m_lpr, profile.values[setting]), All(20U, 20));
  EXPECT_EQ(Shown(), Expected());
}

}  // namespace
}  // namespace pyxis::test
