// What must hold of every window: nothing is clipped, everything can be reached and named, its captions, in light and
// dark, at every scale (the tests run with several scale factors). Leaves a picture of each in the build folder.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <tuple>

#include "data/cases.h"
#include "ui/numeric_edit_field.h"
#include "ui/readable_style.h"
#include "ui/ui_bench.h"

namespace pyxis::test {
namespace {

// A text widget that is narrower or lower than its text.
bool Clips(const QWidget& widget) {
  if (qobject_cast<const QLabel*>(&widget) == nullptr && qobject_cast<const QAbstractButton*>(&widget) == nullptr)
    return false;
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

bool ShowsItsText(const QLineEdit& edit) {
  const int needed = edit.fontMetrics().horizontalAdvance(edit.text());
  QStyleOptionFrame option;
  option.initFrom(&edit);
  option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
  return needed + 4 <= edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit).width();
}

// Nothing lies on its neighbour.
void ExpectApart(const QWidget& shown) {
  for (const QWidget* child : shown.findChildren<QWidget*>())
    for (const QWidget* other : child->parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      const bool both = child != other && child->isVisible() && other->isVisible() && child->window() == &shown;
      EXPECT_FALSE(both && child->geometry().intersects(other->geometry()))
          << child->metaObject()->className() << " on " << other->metaObject()->className();
    }
}

void ExpectReadable(QWidget& shown, const std::string& name) {
  // A serial number's fields take 32 digits.
  std::map<ui::NumericEditField*, std::string> before;
  for (const Case& field : Cases("window_captions.tsv", "fields of 32 digits")) {
    if (field[0] != name) continue;
    auto& edit = Find<ui::NumericEditField>(shown, QString::fromStdString(field[1]));
    before[&edit] = edit.text().toStdString();
    edit.Show(std::string(32, 'D'));
  }
  for (const QWidget* child : shown.findChildren<QWidget*>()) {
    if (child->window() != &shown || !child->isVisible()) continue;
    SCOPED_TRACE(child->metaObject()->className() + child->property("text").toString().toStdString());
    EXPECT_FALSE(Clips(*child));
    EXPECT_TRUE((child->focusPolicy() & Qt::TabFocus) == 0 || Named(*child));
    const auto* edit = qobject_cast<const QLineEdit*>(child);
    EXPECT_TRUE(edit == nullptr || !edit->objectName().isEmpty() || ShowsItsText(*edit));
  }
  for (const auto& [edit, text] : before) edit->Show(text);
  if (name == "smart_option") {  // with room for the frame's buttons
    EXPECT_GE(shown.width(), shown.fontMetrics().horizontalAdvance(shown.windowTitle()) * 11 / 10 + 60);
  }
}

// Focus goes down the window, and from left to right within a line.
void ExpectTabOrder(const QWidget& shown) {
  const QWidget* before = nullptr;
  for (const QWidget* next = shown.nextInFocusChain(); next != &shown; next = next->nextInFocusChain()) {
    const bool stops = next->window() == &shown && next->isVisible() && next->isEnabled();
    if (!stops || (next->focusPolicy() & Qt::TabFocus) == 0) continue;
    if (before != nullptr) {
      const QPoint from = before->mapTo(&shown, QPoint()), to = next->mapTo(&shown, QPoint());
      EXPECT_TRUE(to.y() >= from.y() + before->height() / 2 || to.x() > from.x()) << next->metaObject()->className();
    }
    before = next;
  }
}

// A window's lines from the top, each from left to right: texts without mnemonics, bold ones in stars, [] for a field
// or a list, # for a picture.
std::string LinesOf(const QWidget& shown) {
  std::vector<std::tuple<int, int, std::string>> pieces;
  for (const QWidget* child : shown.findChildren<QWidget*>()) {
    if (child->window() != &shown || !child->isVisible()) continue;
    const auto* label = qobject_cast<const QLabel*>(child);
    const auto* group = qobject_cast<const QGroupBox*>(child);
    QString text = group != nullptr ? group->title() : QString();
    if (label != nullptr || qobject_cast<const QAbstractButton*>(child) != nullptr)
      text = child->property("text").toString().remove('&');
    if (label != nullptr && label->font().bold() && !text.isEmpty()) text = '*' + text + '*';
    if (label != nullptr && !label->pixmap().isNull()) text = "#";
    if (qobject_cast<const QLineEdit*>(child) != nullptr || qobject_cast<const QListWidget*>(child) != nullptr)
      text = "[]";
    const QPoint at = child->mapTo(&shown, group != nullptr ? QPoint() : QPoint(0, child->height() / 2));
    if (!text.isEmpty()) pieces.emplace_back(at.y(), at.x(), text.toStdString());
  }
  constexpr int kSameLine = 5;
  std::sort(pieces.begin(), pieces.end());
  for (std::size_t i = 1; i < pieces.size(); ++i)
    if (auto& y = std::get<0>(pieces[i]); y - std::get<0>(pieces[i - 1]) < kSameLine) y = std::get<0>(pieces[i - 1]);
  std::sort(pieces.begin(), pieces.end());
  std::string lines;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) lines += std::get<0>(pieces[i]) == std::get<0>(pieces[i - 1]) ? "|" : " / ";
    lines += std::get<2>(pieces[i]);
  }
  return lines;
}

// Title, lines, and the button that Enter presses.
void ExpectCaptions(const QWidget& shown, const Case& row) {
  EXPECT_EQ(shown.windowTitle().toStdString(), row[1]);
  std::string standard;
  for (const QPushButton* push : shown.findChildren<QPushButton*>())
    if (push->isDefault()) standard = push->text().remove('&').toStdString();
  EXPECT_EQ(standard, row[2]);
  EXPECT_EQ(LinesOf(shown), row[3]);
}

}  // namespace

void LookAt(QWidget& shown, const std::string& name) {
  SCOPED_TRACE(name);
  if (name == "main") shown.resize(1180, 720), QCoreApplication::processEvents();
  ExpectReadable(shown, name);
  ExpectApart(shown);
  ExpectTabOrder(shown);
  const bool grows = name == "main" || name == "ic_type_select";
  EXPECT_EQ(shown.minimumSize() == shown.maximumSize(), !grows);
  for (const Case& row : Cases("window_captions.tsv", "windows"))
    if (row[0] == name) ExpectCaptions(shown, row);
  const QDir out(QStringLiteral(PYXIS_SCREENSHOT_DIR));
  ASSERT_TRUE(QDir().mkpath(out.path()));
  const QString file = QStringLiteral("%1_%2_light.png").arg(name.c_str()).arg(qRound(shown.devicePixelRatioF() * 100));
  EXPECT_TRUE(shown.grab().save(out.filePath(file)));
}

namespace {

class EveryWindow : public UiBench {};

// Worked examples of the guidelines.
TEST_F(EveryWindow, ContrastsAreThoseOfTheGuidelines) {
  for (const auto& [one, other, contrast] : Table<const char*, const char*, double>{{"#ffffff", "#000000", 21},
                                                                                    {"#767676", "#ffffff", 4.54},
                                                                                    {"#ffffff", "#ff0000", 4.00},
                                                                                    {"#0000ff", "#ffffff", 8.59},
                                                                                    {"#008000", "#ffffff", 5.14},
                                                                                    {"#0a0a0a", "#000000", 1.06}})
    EXPECT_NEAR(ui::ContrastOf(QColor(one), QColor(other)), contrast, 0.005) << one;
}

// After a click.
class FocusedBox : public QCheckBox {
  using QCheckBox::QCheckBox;
  void initStyleOption(QStyleOptionButton* option) const override {
    QCheckBox::initStyleOption(option);
    option->state |= QStyle::State_HasFocus;
  }
};

// The operator reads protection in the fuse panel. A box shows its outline and its text on its background: the darkest
// and the lightest of its pixels against that of its corner.
TEST_F(EveryWindow, BoxesCanBeReadInLightAndDark) {
  HoldJob("QVL04");
  Open();
  const QPalette light = QApplication::palette();
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? QPalette(QColor(60, 60, 60), QColor(45, 45, 48)) : light);
    QRadioButton radio(QStringLiteral("radio"));
    radio.setAutoExclusive(false);
    QCheckBox plain(QStringLiteral("plain"));
    FocusedBox focused(QStringLiteral("focused"));
    std::vector<QAbstractButton*> boxes{&radio, &plain, &focused};
    for (const char* name : {"Protect", "Unprotect", "32KHz disable"})
      boxes.push_back(&Find<QAbstractButton>(*window, name));
    for (QAbstractButton* box : boxes) {
      SCOPED_TRACE(box->text().toStdString() + (dark ? " dark" : " light"));
      box->setChecked(false);
      const QImage picture = box->grab().toImage();
      const QColor ground = box->palette().color(QPalette::Active, QPalette::Window);
      QStyleOptionButton option;
      option.initFrom(box);
      const QRect mark = box->style()->subElementRect(
          qobject_cast<QRadioButton*>(box) != nullptr ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator,
          &option, box);
      double outline = 0, text = 0;
      const double scale = picture.devicePixelRatio();
      for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y) {
          const double contrast = ui::ContrastOf(picture.pixelColor(x, y), ground);
          double& most = x < (mark.right() + 2) * scale ? outline : text;
          most = std::max(most, contrast);
        }
      EXPECT_TRUE(outline >= 3 && text >= 4.5) << outline << " " << text;
    }
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace pyxis::test
