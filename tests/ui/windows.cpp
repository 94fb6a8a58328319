#include "ui/windows.h"

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
#include "view/goto_address.h"
#include "view/show_file.h"

namespace pyxis::test {

namespace {

void Show(QWidget& widget) {
  widget.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
  QCoreApplication::processEvents();
}

}  // namespace

EveryWindow::EveryWindow() {
  folder::BuildProgramFolder(Path("."));
  TheMachine().op = &op;
  LoadSample("QVL04");
  TheMachine().op = &qtOp;
  Open();
  ShowFile(Path("samples/QVL04.bin"));
  QCoreApplication::processEvents();
}

void EveryWindow::ForEach(const std::function<void(QWidget&, const std::string&)>& look) {
  look(*window, "main");
  const auto dialog = [&look](QWidget&& widget, const std::string& name) {
    Show(widget);
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
  dialog(ui::SnSetWindow(snSet, window.get()), "serial_number_set");
  CSnProgramDlg snProgram(false);
  snProgram.OnInitDialog();
  dialog(ui::SnProgramWindow(snProgram, window.get()), "serial_number_program");
  CReadChipInfoDlg chipInfo(true);
  chipInfo.OnInitDialog();
  dialog(ui::ChipInfoWindow(chipInfo, window.get()), "read_chip_info");
  CDownloadInfoDlg downloadInfo("Chip Name : QVL04", "Download File Time :2015/12/31_23:59:59");
  dialog(ui::DownloadInfoWindow(downloadInfo, window.get()), "compare_file");
  dialog(ui::AboutWindow(window.get()), "about");
}

}  // namespace pyxis::test
