#include "standin/local_writer_events.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>

namespace pyxis::standin {

LocalWriterEvents::LocalWriterEvents(std::string socketPath)
    : path_(std::move(socketPath)),
      waits_(epoll_create1(EPOLL_CLOEXEC)),
      watch_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  const std::filesystem::path folder = std::filesystem::absolute(path_).parent_path();
  works_ = WaitFor(watch_) && inotify_add_watch(*watch_, folder.c_str(), IN_MOVED_TO) != -1;
  if (works_) Connect();
}

std::vector<int> LocalWriterEvents::Descriptors() {
  if (!works_) return {};
  return {*waits_};
}

bool LocalWriterEvents::WaitFor(const Descriptor& descriptor) {
  epoll_event wait{};
  wait.events = EPOLLIN;
  return epoll_ctl(*waits_, EPOLL_CTL_ADD, *descriptor, &wait) == 0;
}

// What has happened in the directory only wakes the main loop: who has the name now, and whether he lives, tells the
// rest.
std::vector<DeviceEvent> LocalWriterEvents::Take() {
  const std::string name = path_ + "#{" + kWriterInterfaceClass + "}";
  std::vector<DeviceEvent> events;
  if (!works_) return events;
  char passed[4096];
  while (read(*watch_, passed, sizeof passed) > 0) {
  }
  if (connection_ && !IsThere()) {
    connection_.Close();
    events.push_back({DeviceEvent::Kind::Removal, name});
  }
  if (!connection_ && Connect()) events.push_back({DeviceEvent::Kind::Arrival, name});
  return events;
}

// A socket that takes the name in between is found at the next look.
bool LocalWriterEvents::Connect() {
  inode_ = InodeOf(path_);
  Descriptor connection = NewSocket(SOCK_NONBLOCK);
  if (!ConnectTo(*connection, path_) || !WaitFor(connection)) return false;
  connection_ = std::move(connection);
  return true;
}

// The writer says nothing unasked: what can be read is its end.
bool LocalWriterEvents::IsThere() const {
  pollfd wait{*connection_, POLLIN, 0};
  return poll(&wait, 1, 0) == 0 && InodeOf(path_) == inode_;
}

}  // namespace pyxis::standin
