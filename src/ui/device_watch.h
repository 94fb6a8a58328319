// Device events on the main loop. An event that can't be delivered yet waits, and keeps its place.
#pragma once

#include <QObject>
#include <deque>
#include <functional>

#include "platform/device_events.h"

namespace pyxis::ui {

class DeviceWatch : public QObject {
 public:
  // False from `deliver`: not now; Deliver() is called again when it may work.
  DeviceWatch(QObject* parent, DeviceEvents& events, std::function<bool(const DeviceEvent&)> deliver);
  void Deliver();

 private:
  DeviceEvents& events_;
  std::function<bool(const DeviceEvent&)> deliver_;
  std::deque<DeviceEvent> waiting_;
  bool delivering_ = false;
};

}  // namespace pyxis::ui
