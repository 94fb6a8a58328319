// The writer plugged in and pulled out.
#pragma once

#include "platform/device_events.h"

namespace pyxis {

void OnDeviceEvent(const DeviceEvent& event);

}  // namespace pyxis
