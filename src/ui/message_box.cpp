#include "ui/message_box.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "ui/title_width.h"

namespace pyxis::ui {

namespace {

constexpr int kLeastWidth = 40;     // characters
constexpr QChar kMayBreak(0x200B);  // a blank of no width
constexpr int kAround = 200;        // pixels of a full-width box that icon, margins and frame take

int WidestLine(const QStringList& lines, const QFontMetrics& metrics) {
  int widest = 0;
  for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
  return widest;
}

// A word that is wider than a line, such as a long path, may break anywhere.
QString Breakable(const QString& text, int width, const QFontMetrics& metrics) {
  QStringList words = text.split(QLatin1Char(' '));
  for (QString& word : words) {
    if (metrics.horizontalAdvance(word) <= width) continue;
    QString broken;
    for (const QChar character : std::as_const(word)) {
      broken += character;
      if (!character.isHighSurrogate()) broken += kMayBreak;
    }
    word = broken;
  }
  return words.join(QLatin1Char(' '));
}

}  // namespace

MessageBox::MessageBox(Icon icon, const QString& caption, const QString& text, StandardButtons buttons, QWidget* parent)
    : QMessageBox(icon, caption, text, buttons, parent) {
  setTextFormat(Qt::PlainText);  // it goes out as it is
  auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  if (label == nullptr) return;
  const QFontMetrics metrics = label->fontMetrics();
  const int most = screen()->availableGeometry().width() - kAround;
  const int needed = WidestLine(text.split(QLatin1Char('\n')), metrics) + 2 * label->margin() + 2;
  const int least = std::max(kLeastWidth * metrics.averageCharWidth(), TitleWidth(*this, caption));
  if (needed > most) {
    label->setText(Breakable(text, most, metrics));
    label->setWordWrap(true);
  }
  label->setMinimumWidth(std::min(std::max(needed, least), most));
}

bool MessageBox::event(QEvent* event) {
  const bool known = QMessageBox::event(event);
  if (event->type() == QEvent::LayoutRequest) GiveRoom();
  return known;
}

void MessageBox::showEvent(QShowEvent* event) {
  QMessageBox::showEvent(event);
  GiveRoom();
}

// Qt's own box has at most 1000 pixels, and less on a small screen, whatever its label asks for. Its place was chosen
// by that width, too: it lies over the middle of its window, but not beyond the sides of the screen.
void MessageBox::GiveRoom() {
  if (!isVisible()) return;
  const int wanted = layout()->totalMinimumSize().width();
  QRect frame = frameGeometry();
  if (width() < wanted) {
    const bool wraps = layout()->hasHeightForWidth();
    setFixedSize(wanted, wraps ? layout()->totalHeightForWidth(wanted) : layout()->totalMinimumSize().height());
    const QPoint middle =
        parentWidget() != nullptr ? parentWidget()->window()->frameGeometry().center() : frame.center();
    frame = frameGeometry();
    frame.moveCenter(middle);
  }
  const QRect room = screen()->availableGeometry();
  frame.moveRight(std::min(frame.right(), room.right()));
  frame.moveBottom(std::min(frame.bottom(), room.bottom()));
  frame.moveTopLeft({std::max(frame.left(), room.left()), std::max(frame.top(), room.top())});
  if (frame.topLeft() != frameGeometry().topLeft()) move(frame.topLeft());
}

}  // namespace pyxis::ui
