// What must hold of every window: nothing is clipped, everything can be reached and named, in light and dark, at every
// scale (the tests run with several scale factors). Leaves a picture of each in the build folder.
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>

#include "ui/windows.h"

namespace pyxis::test {
namespace {

// A text widget that is narrower or lower than its text.
bool Clips(const QWidget& widget) {
  const bool isText =
      qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr;
  if (!isText || !widget.isVisible()) return false;
  const QSize needed = widget.minimumSizeHint();
  return widget.width() < needed.width() || widget.height() < needed.height();
}

bool Named(const QWidget& widget) {
  if (!widget.accessibleName().isEmpty()) return true;
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
    return button->text().contains(QLatin1Char('&')) || !button->text().isEmpty();
  for (const QLabel* label : widget.window()->findChildren<QLabel*>())
    if (label->buddy() == &widget) return true;
  return false;
}

TEST_F(EveryWindow, NothingIsClippedAndEverythingHasAName) {
  ForEach([](QWidget& shown, const std::string& name) {
    for (const QWidget* child : shown.findChildren<QWidget*>()) {
      if (child->window() != &shown) continue;
      const std::string what =
          name + ": " + child->metaObject()->className() + " " + child->property("text").toString().toStdString();
      EXPECT_FALSE(Clips(*child)) << what;
      EXPECT_TRUE((child->focusPolicy() & Qt::TabFocus) == 0 || !child->isVisible() || Named(*child)) << what;
    }
  });
}

// Focus goes down the window, and from left to right within a line.
TEST_F(EveryWindow, TabOrderFollowsTheEye) {
  ForEach([](QWidget& shown, const std::string& name) {
    const auto place = [&shown](const QWidget* widget) { return widget->mapTo(&shown, QPoint(0, 0)); };
    std::vector<const QWidget*> order;
    const QWidget* first = &shown;
    for (const QWidget* next = first->nextInFocusChain(); next != first; next = next->nextInFocusChain())
      if (next->window() == &shown && next->isVisible() && next->isEnabled() &&
          (next->focusPolicy() & Qt::TabFocus) != 0)
        order.push_back(next);
    for (std::size_t i = 1; i < order.size(); ++i) {
      const QPoint from = place(order[i - 1]), to = place(order[i]);
      const bool onwards = to.y() >= from.y() + order[i - 1]->height() / 2 || to.x() > from.x();
      EXPECT_TRUE(onwards) << name << ": " << order[i - 1]->metaObject()->className() << " to "
                           << order[i]->metaObject()->className();
    }
  });
}

TEST_F(EveryWindow, Screenshots) {
  const QPalette light = QApplication::palette();
  const QDir out(QStringLiteral(PYXIS_SCREENSHOT_DIR));
  ASSERT_TRUE(QDir().mkpath(out.path()));
  const int percent = qRound(window->devicePixelRatioF() * 100);
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? DarkPalette() : light);
    window->resize(1180, 720);
    QCoreApplication::processEvents();
    ForEach([&](QWidget& shown, const std::string& name) {
      const QPixmap picture = shown.grab();
      const QString file =
          QStringLiteral("%1_%2_%3.png").arg(QString::fromStdString(name)).arg(percent).arg(dark ? "dark" : "light");
      EXPECT_TRUE(picture.save(out.filePath(file))) << name;
    });
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace pyxis::test
