#include "ui/device_watch.h"

#include <QSocketNotifier>

namespace pyxis::ui {

DeviceWatch::DeviceWatch(QObject* parent, DeviceEvents& events, std::function<bool(const DeviceEvent&)> deliver)
    : QObject(parent), events_(events), deliver_(std::move(deliver)) {
  for (const int descriptor : events_.Descriptors()) {
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { Deliver(); });
  }
}

void DeviceWatch::Deliver() {
  for (DeviceEvent& event : events_.Take()) waiting_.push_back(std::move(event));
  if (delivering_) return;  // called again from the end of a delivery: the loop below goes on
  delivering_ = true;
  while (!waiting_.empty()) {
    const DeviceEvent event = waiting_.front();
    if (!deliver_(event)) break;
    waiting_.pop_front();
  }
  delivering_ = false;
}

}  // namespace pyxis::ui
