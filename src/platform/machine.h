// The machine that the logic runs on: one record of the bodies behind platform/. Programs and tests fill it before they
// call any logic; it owns nothing. A seam that nobody filled has a body that does nothing (no writer, no window).
#pragma once

#include <cstdio>

namespace pyxis {

class Clock;
class DevicePipes;
class Language;
class MainView;
class Operator;
class Profile;
class UpdateAgent;
class UsbHost;
class VendorApi;

struct Machine {
  Operator* op;
  Clock* clock;
  MainView* view;
  UsbHost* usb;
  DevicePipes* pipes;
  VendorApi* vendor;
  Profile* profile;
  Language* language;
  UpdateAgent* update;
  // Where plain diagnostic lines go (platform/diagnostics.h); null prints nothing.
  std::FILE* diagnostics;
  std::FILE* trace;
};

Machine& TheMachine();
void ResetMachine();

}  // namespace pyxis
