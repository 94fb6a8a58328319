// The events of several sources as those of one.
#pragma once

#include <vector>

#include "platform/device_events.h"

namespace pyxis {

class JoinedEvents : public DeviceEvents {
 public:
  // The sources stay the caller's.
  explicit JoinedEvents(std::vector<DeviceEvents*> sources) : sources_(std::move(sources)) {}

  std::vector<int> Descriptors() override {
    std::vector<int> all;
    for (DeviceEvents* source : sources_)
      for (const int descriptor : source->Descriptors()) all.push_back(descriptor);
    return all;
  }
  std::vector<DeviceEvent> Take() override {
    std::vector<DeviceEvent> all;
    for (DeviceEvents* source : sources_)
      for (DeviceEvent& event : source->Take()) all.push_back(std::move(event));
    return all;
  }

 private:
  std::vector<DeviceEvents*> sources_;
};

}  // namespace pyxis
