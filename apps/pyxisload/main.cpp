// The window program. It runs in the program folder, which becomes its current directory.
#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/program_folder.h"
#include "shell/application.h"
#include "standin/local_writer_events.h"
#include "standin/socket_path.h"
#include "system/broken_pipe.h"
#include "system/joined_events.h"
#include "system/libusb_host.h"
#include "system/system_clock.h"
#include "system/system_language.h"
#include "system/udev_events.h"
#include "system/update_library.h"
#include "system/vendor_library.h"
#include "ui/main_window.h"
#include "ui/qt_operator.h"
#include "ui/qt_text.h"
#include "ui/readable_style.h"
#include "ui/settings_profile.h"
#include "version/version.h"
#ifdef _WIN32
#include "system/windows/windows_pipes.h"
#endif

namespace {

constexpr char kUsage[] =
    "Usage: pyxisload [OPTIONS]\n"
    "\n"
    "Options:\n"
    "  --help      Print this help message and exit\n"
    "  --version   Print the version and exit\n";

// True when the command line asked for words alone.
bool Answered(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    const bool help = argument == "--help" || argument == "-h";
    if (!help && argument != "--version") continue;
    std::fputs(help ? kUsage : (std::string("pyxisload ") + pyxis::kVersion + "\n").c_str(), stdout);
    return true;
  }
  return false;
}

bool EnterProgramFolder() {
  pyxis::ProgramFolder folder = pyxis::WindowFolder();
  std::error_code error;
  if (folder.error.empty()) std::filesystem::current_path(folder.path, error);
  if (error) folder.error = folder.path + ": " + error.message();
  if (folder.error.empty()) return true;
  std::fprintf(stderr, "pyxisload: %s\n", folder.error.c_str());
  QMessageBox::critical(nullptr, QStringLiteral("PyxisLoad"), pyxis::ui::FromText(folder.error));
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace pyxis;
  if (Answered(argc, argv)) return 0;
  IgnoreBrokenPipes();
  QApplication application(argc, argv);
  QApplication::setStyle(new ui::ReadableStyle);
  QApplication::setApplicationName(QStringLiteral("PyxisLoad"));
  QApplication::setDesktopFileName(QStringLiteral("pyxisload"));
  if (!EnterProgramFolder()) return 1;
  QApplication::setWindowIcon(QIcon(ui::FromText(ResolvePath(CurrentDirectory() + "/pyxisload.ico"))));
  SystemClock clock;
  SystemLanguage language;
  LibusbHost usb;
  VendorLibrary vendor;
  UpdateLibrary update;
  ui::QtOperator op;
  ui::SettingsProfile profile;
  UdevEvents usbEvents;
  standin::LocalWriterEvents standinEvents(standin::SocketPath());
  JoinedEvents events({&usbEvents, &standinEvents});
  Machine& machine = TheMachine();
#ifdef _WIN32
  WindowsPipes pipes;
  machine.pipes = &pipes;
#endif
  machine.op = &op;
  machine.clock = &clock;
  machine.language = &language;
  machine.usb = &usb;
  machine.vendor = &vendor;
  machine.update = &update;
  machine.profile = &profile;

  CPyxisLoadApp app;
  app.InitInstance();
  int result = 0;
  {
    ui::MainWindow window(op.Gate());
    machine.view = &window;
    op.SetMainWindow(&window);
    update.SetMainWindow(reinterpret_cast<void*>(window.winId()));
    window.Start();
    window.Watch(events);
    window.show();
    result = QApplication::exec();
  }
  app.ExitInstance();
  ResetMachine();
  return result;
}
