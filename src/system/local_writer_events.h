// Coming and going of a stand-in writer that runs as a process: it is there while it accepts on its local socket.
#pragma once

#include <string>

#include "platform/device_events.h"

namespace pyxis {

class LocalWriterEvents : public DeviceEvents {
 public:
  // `socketPath`: where the writer listens. It takes a new socket to this name only when it accepts. A writer that is
  // there already gives no arrival. Without the directory of that path there are no events.
  explicit LocalWriterEvents(std::string socketPath);
  ~LocalWriterEvents() override;
  LocalWriterEvents(const LocalWriterEvents&) = delete;
  LocalWriterEvents& operator=(const LocalWriterEvents&) = delete;

  std::vector<int> Descriptors() override;
  std::vector<DeviceEvent> Take() override;

 private:
  bool WaitFor(int descriptor);
  bool Connect();
  bool HasEnded() const;
  bool TakeNews();  // true when a socket may have come under the name

  std::string path_, name_;
  int waits_ = -1;       // epoll over the other two, the one descriptor for the main loop
  int watch_ = -1;       // inotify on the directory
  int connection_ = -1;  // to the writer, silent; it ends when the writer's process does, however that ends
};

}  // namespace pyxis
