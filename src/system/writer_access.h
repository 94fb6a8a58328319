// The right to open a writer that is plugged in. A library that may not open a device tells only that there is none.
#pragma once

#include <string>

namespace pyxis {

// What an operator can do about a writer that is plugged in but that this user may not open, in words; empty when there
// is no such writer. `sysfs` and `nodes` are where the system lists its USB devices and keeps their files.
std::string MissingRightWords(const std::string& sysfs = "/sys/bus/usb/devices",
                              const std::string& nodes = "/dev/bus/usb");

}  // namespace pyxis
