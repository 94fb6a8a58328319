// Coming and going of a stand-in writer that runs as a process: it is there while it accepts on its local socket.
#pragma once

#include <string>

#include "platform/device_events.h"
#include "standin/local_socket.h"

namespace pyxis::standin {

class LocalWriterEvents : public DeviceEvents {
 public:
  // `socketPath`: where the writer listens. It takes a new socket to this name only when it accepts. A writer that is
  // there already gives no arrival. Without the directory of that path there are no events.
  explicit LocalWriterEvents(std::string socketPath);

  std::vector<int> Descriptors() override;
  std::vector<DeviceEvent> Take() override;

 private:
  bool WaitFor(const Descriptor& descriptor);
  bool Connect();
  bool IsThere() const;

  std::string path_;
  Descriptor waits_;       // epoll over the other two, the one descriptor for the main loop
  Descriptor watch_;       // inotify on the directory
  Descriptor connection_;  // to the writer, silent; it ends when the writer's process does, however that ends
  ino_t inode_ = 0;        // of the socket that it goes to
  bool works_ = false;
};

}  // namespace pyxis::standin
