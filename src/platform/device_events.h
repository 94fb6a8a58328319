// Coming and going of the writer's device, as two events with the device's name, in which the writer's interface class
// stands. Nothing is told of any other device: with velmarapi an arrival is taken for the writer's whatever its name.
#pragma once

#include <string>
#include <vector>

namespace pyxis {

// As it stands in the names of the writer's interfaces.
inline constexpr char kWriterInterfaceClass[] = "6580898b-0493-40b6-87aa-d307188d4e24";

struct DeviceEvent {
  enum class Kind { Arrival, Removal };
  Kind kind;
  std::string deviceName;
};

class DeviceEvents {
 public:
  virtual ~DeviceEvents() = default;
  // File descriptors that become readable when events wait; the main loop watches them.
  virtual std::vector<int> Descriptors() = 0;
  // Takes the waiting events, oldest first; never blocks.
  virtual std::vector<DeviceEvent> Take() = 0;
};

}  // namespace pyxis
