// What must hold of every window: nothing is clipped, everything can be reached and named, in light and dark, at every
// scale (the tests run with several scale factors). Leaves a picture of each in the build folder.
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTest>

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
