// The headless job runner: the same logic as the window program, for scripts and production lines.
#include "job.h"
#include "platform/machine.h"
#include "system/broken_pipe.h"
#include "system/libusb_host.h"
#include "system/system_clock.h"
#include "system/system_language.h"
#include "system/vendor_library.h"
#ifdef _WIN32
#include "system/windows/windows_pipes.h"
#endif

int main(int argc, char** argv) {
  using namespace pyxis;
  using namespace pyxis::job;
  IgnoreBrokenPipes();
  Job job;
  SystemClock clock;
  SystemLanguage language;
  LibusbHost usb;
  VendorLibrary vendor;
#ifdef _WIN32
  WindowsPipes pipes;
  TheMachine().pipes = &pipes;
#endif
  TheMachine().op = &job.op;
  TheMachine().clock = &clock;
  TheMachine().language = &language;
  TheMachine().usb = &usb;
  TheMachine().vendor = &vendor;

  const int code = RunCommandLine(job, argc, argv);
  ResetMachine();
  return code;
}
