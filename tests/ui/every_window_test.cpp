// What must hold of every window: nothing is clipped, everything can be reached and named, in light and dark, at every
// scale (the tests run with several scale factors). Leaves a picture of each in the build folder.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>
#include <map>
#include <set>

#include "catalogue/ic_select.h"
#include "operations/chip_info.h"
#include "operations/compare_file.h"
#include "options/option_select.h"
#include "options/smart_option_dlg.h"
#include "options/tin_file.h"
#include "pyxisfolder/folder.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "ui/about_window.h"
#include "ui/chip_info_window.h"
#include "ui/download_info_window.h"
#include "ui/goto_address_window.h"
#include "ui/ic_select_window.h"
#include "ui/option_select_window.h"
#include "ui/readable_style.h"
#include "ui/smart_option_window.h"
#include "ui/sn_program_window.h"
#include "ui/sn_set_window.h"
#include "ui/ui_bench.h"
#include "view/goto_address.h"
#include "view/show_file.h"

namespace pyxis::test {
namespace {

// A writer with a job, and the main window over it.
class EveryWindow : public UiBench {
 protected:
  EveryWindow() {
    folder::BuildProgramFolder(Path("."));
    std::filesystem::create_directory_symlink(PYXIS_BIN_DIR "/../folder/res", Path("res"));
    HoldJob("QVL04");
    Open();
    ShowFile(Path("samples/QVL04.bin"));
    QCoreApplication::processEvents();
  }
  // Shows each window of the program in turn and hands it over with its name.
  void ForEach(const std::function<void(QWidget&, const std::string&)>& look) {
    look(*window, "main");
    const auto dialog = [&look](QWidget&& widget, const std::string& name) {
      widget.show();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
      QCoreApplication::processEvents();
      look(widget, name);
    };
    CIcSelectDlg icSelect;
    ASSERT_TRUE(icSelect.OnInitDialog());
    icSelect.OnSeriesChange(7);
    icSelect.OnTypeChange(4);
    dialog(ui::IcSelectWindow(icSelect, window.get()), "ic_type_select");
    COptionSelectDlg optionSelect;
    optionSelect.OnInitDialog();
    dialog(ui::OptionSelectWindow(optionSelect, window.get()), "option_select");
    CGotoAddressDlg gotoAddress;
    dialog(ui::GotoAddressWindow(gotoAddress, window.get()), "goto_address");
    ReadTinFile(Path("tin/QV8348.tin"));
    CSmartOptionDlg smartOption;
    dialog(ui::SmartOptionWindow(smartOption, window.get()), "smart_option");
    TheSnRecord().SnStartText = "0123456789ABCDEF0123456789ABCDEF";
    CSnSetDlg snSet(false, false, false);
    snSet.OnInitDialog();
    dialog(ui::SnSetWindow(snSet, qtOp.Gate(), window.get()), "serial_number_set");
    CSnProgramDlg snProgram(false);
    snProgram.OnInitDialog();
    dialog(ui::SnProgramWindow(snProgram, qtOp.Gate(), window.get()), "serial_number_program");
    CReadChipInfoDlg chipInfo(true);
    chipInfo.OnInitDialog();
    dialog(ui::ChipInfoWindow(chipInfo, qtOp.Gate(), window.get()), "read_chip_info");
    CDownloadInfoDlg downloadInfo("Chip Name : QVL04", "Download File Time :2015/12/31_23:59:59");
    dialog(ui::DownloadInfoWindow(downloadInfo, qtOp.Gate(), window.get()), "compare_file");
    dialog(ui::AboutWindow(window.get()), "about");
  }
};

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

// What stands in a line edit, and the title in its bar, with room for the frame's buttons.
TEST_F(EveryWindow, FieldsAndTitlesShowAllOfTheirText) {
  ForEach([](QWidget& shown, const std::string& name) {
    for (const QLineEdit* edit : shown.findChildren<QLineEdit*>()) {
      const int needed = edit->fontMetrics().horizontalAdvance(edit->text());
      if (edit->objectName().isEmpty() && edit->isVisible()) {
        QStyleOptionFrame option;
        option.initFrom(edit);
        option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit);
        const QRect inside = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
        EXPECT_LE(needed + 4, inside.width()) << name << " " << edit->text().toStdString();
      }
    }
    if (name == "smart_option") {
      EXPECT_GE(shown.width(), shown.fontMetrics().horizontalAdvance(shown.windowTitle()) * 11 / 10 + 60);
    }
  });
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

// Title, texts in the order of the children without mnemonics, and the button that Enter presses; Escape closes each.
TEST_F(EveryWindow, CaptionsDefaultButtonAndEscape) {
  struct Row {
    const char *title, *texts, *standard;
  };
  const std::map<std::string, Row> rows{
      {"ic_type_select",
       {"IC Type Select",
        "Series|Type|Series :|IC Type :|Display Serial Number|EXHV ISP program|"
        "ISP program|Mass Production Mode|Production Limit :|OK|Cancel",
        "OK"}},
      {"option_select",
       {"Option Select 1", "Unprotect|Protect|Fast mode|Dual mode|32KHz disable|32KHz enable|OK", "OK"}},
      {"goto_address", {"Go to address", "Go to :|(hex)|OK|Cancel", "OK"}},
      {"smart_option", {"Smart Option [ System config : FFFFFFFF ]", "", ""}},
      {"serial_number_set",
       {"Serial Number Set",
        "S/N Length [Hex]:|S/N Start Address (Hex) :|Start Serial NO (Hex) : |"
        "S/N Amount (Hex) : |Direction (MSB in) : |Low Byte|Hight Byte|Load|Cancel",
        "Load"}},
      {"serial_number_program",
       {"Serial Number Program",
        "Chip Type :  |Start Serial NO[Hex] : |End Serial NO[Hex] : |"
        "S/N Start Address[Hex] : |S/N End Address[Hex] : |  Counter  |OK (Hex) : |"
        "NG (Hex) : |Total (Hex) : |S/N Program|S/N SET|Reset Count|Close",
        "S/N Program"}},
      {"read_chip_info", {"Read CHIP Information", "Chip Name : |System Config : |Read|Cancel", "Read"}},
      {"compare_file",
       {"Download File Information", "Chip Name : QVL04|Download File Time :2015/12/31_23:59:59|Compare File|Cancel",
        "Compare File"}},
      {"about", {"About PyxisLoad", "PyxisLoad|Version 1.0.0 Build 007|OK", "OK"}}};
  TheAppState().conversion.SystemConfigWord = -1;
  ForEach([&](QWidget& shown, const std::string& name) {
    auto* dialog = qobject_cast<QDialog*>(&shown);
    if (dialog == nullptr) return;
    SCOPED_TRACE(name);
    const Row& row = rows.at(name);
    EXPECT_EQ(shown.windowTitle(), row.title);
    std::multiset<std::string> texts, wanted;
    std::string standard;
    for (const QWidget* child : shown.findChildren<QWidget*>()) {
      std::string text;
      if (const auto* label = qobject_cast<const QLabel*>(child)) text = label->text().toStdString();
      if (const auto* button = qobject_cast<const QAbstractButton*>(child)) text = button->text().toStdString();
      if (const auto* group = qobject_cast<const QGroupBox*>(child)) text = group->title().toStdString();
      std::erase(text, '&');
      const auto* push = qobject_cast<const QPushButton*>(child);
      if (push != nullptr && push->isDefault()) standard = text;
      if (!text.empty()) texts.insert(text);
    }
    for (const QString& text : QString(row.texts).split('|', Qt::SkipEmptyParts)) wanted.insert(text.toStdString());
    if (name == "ic_type_select") wanted.insert({"USB: Full Speed Series", "QVL09"});  // what is chosen
    EXPECT_EQ(texts, wanted);
    EXPECT_EQ(standard, row.standard);
    QTest::keyClick(&shown, Qt::Key_Escape);
    EXPECT_FALSE(shown.isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
  });
}

// The operator reads protection in the fuse panel. A box shows its outline and its text on its background: the darkest
// and the lightest of its pixels against that of its corner.
TEST_F(EveryWindow, BoxesCanBeReadInLightAndDark) {
  const QPalette light = QApplication::palette();
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? QPalette(QColor(60, 60, 60), QColor(45, 45, 48)) : light);
    QRadioButton radio(QStringLiteral("radio"));
    radio.setAutoExclusive(false);
    QCheckBox plain(QStringLiteral("plain"));
    std::vector<std::pair<QAbstractButton*, double>> boxes{{&radio, 3}, {&plain, 3}};
    for (const char* name : {"Protect", "Unprotect", "32KHz disable"})
      boxes.emplace_back(&Find<QAbstractButton>(*window, name), 3);
    for (const auto& [box, least] : boxes) {
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
      EXPECT_GE(outline, least);
      EXPECT_GE(text, 4.5);
    }
  }
  QApplication::setPalette(light);
}

TEST_F(EveryWindow, Screenshots) {
  const QPalette light = QApplication::palette();
  const QDir out(QStringLiteral(PYXIS_SCREENSHOT_DIR));
  ASSERT_TRUE(QDir().mkpath(out.path()));
  const int percent = qRound(window->devicePixelRatioF() * 100);
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? QPalette(QColor(60, 60, 60), QColor(45, 45, 48)) : light);
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
