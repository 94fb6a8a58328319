// Coming and going of the writer on the USB, by udev.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/device_events.h"

struct udev;
struct udev_monitor;

namespace pyxis {

// A udev event of subsystem usb as ours; nothing for what is not the coming or going of a whole device with the
// writer's numbers. They are read from ID_VENDOR_ID and ID_MODEL_ID, else from PRODUCT ("7a31/1602/100"), which the
// kernel sends with removals too. The event's name is the device's path with the interface class in braces behind it.
std::optional<DeviceEvent> EventOfUdev(const std::map<std::string, std::string>& properties);

// udev tells of several devices in any order: of a writer whose cable has moved to another plug first that it is here,
// and then that it was gone. By the kernel's number of the events (SEQNUM) a removal older than an arrival that has
// been told is no event.
class UdevOrder {
 public:
  std::optional<DeviceEvent> EventOf(const std::map<std::string, std::string>& properties);

 private:
  unsigned long long arrived_ = 0;
};

class UdevEvents : public DeviceEvents {
 public:
  // Listens to udev, or to the kernel on a machine where no udev runs. Without either there are no events.
  UdevEvents();
  std::vector<int> Descriptors() override;
  std::vector<DeviceEvent> Take() override;

 private:
  struct Release {
    void operator()(udev* handle) const;
    void operator()(udev_monitor* monitor) const;
  };
  std::unique_ptr<udev, Release> udev_;
  std::unique_ptr<udev_monitor, Release> monitor_;
  UdevOrder order_;
};

}  // namespace pyxis
