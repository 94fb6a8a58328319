// The window program. It runs in the program folder, its current directory, and has no command line.
#include <QApplication>
#include <QIcon>

#include "platform/files.h"
#include "platform/machine.h"
#include "shell/application.h"
#include "standin/socket_path.h"
#include "system/broken_pipe.h"
#include "system/joined_events.h"
#include "system/libusb_host.h"
#include "system/local_writer_events.h"
#include "system/system_clock.h"
#include "system/system_language.h"
#include "system/udev_events.h"
#include "system/update_library.h"
#include "system/vendor_library.h"
#include "system/windows_pipes.h"
#include "ui/main_window.h"
#include "ui/qt_clipboard.h"
#include "ui/qt_operator.h"
#include "ui/qt_text.h"
#include "ui/readable_style.h"
#include "ui/settings_profile.h"

int main(int argc, char** argv) {
  using namespace pyxis;
  IgnoreBrokenPipes();
  QApplication application(argc, argv);
  QApplication::setStyle(new ui::ReadableStyle);
  QApplication::setApplicationName(QStringLiteral("PyxisLoad"));
  QApplication::setWindowIcon(QIcon(ui::FromText(ResolvePath(CurrentDirectory() + "/pyxisload.ico"))));
  SystemClock clock;
  SystemLanguage language;
  LibusbHost usb;
  VendorLibrary vendor;
  UpdateLibrary update;
  ui::QtOperator op;
  ui::SettingsProfile profile;
  UdevEvents usbEvents;
  LocalWriterEvents standinEvents(standin::SocketPath());
  JoinedEvents events({&usbEvents, &standinEvents});
  ui::QtClipboard clipboard;
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
  machine.clipboard = &clipboard;

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
