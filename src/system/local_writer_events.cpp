#include "system/local_writer_events.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

namespace pyxis {

namespace {

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

void Close(int& descriptor) {
  if (descriptor >= 0) close(descriptor);
  descriptor = -1;
}

}  // namespace

LocalWriterEvents::LocalWriterEvents(std::string socketPath)
    : path_(std::move(socketPath)), name_(path_.substr(path_.rfind('/') + 1)) {
  waits_ = epoll_create1(EPOLL_CLOEXEC);
  watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (waits_ < 0 || watch_ < 0 || !WaitFor(watch_) ||
      inotify_add_watch(watch_, DirectoryOf(path_).c_str(), IN_MOVED_TO) < 0) {
    Close(watch_);
    return;
  }
  Connect();
}

LocalWriterEvents::~LocalWriterEvents() {
  for (int* descriptor : {&connection_, &watch_, &waits_}) Close(*descriptor);
}

std::vector<int> LocalWriterEvents::Descriptors() {
  if (watch_ < 0) return {};
  return {waits_};
}

bool LocalWriterEvents::WaitFor(int descriptor) {
  epoll_event wait{};
  wait.events = EPOLLIN;
  return epoll_ctl(waits_, EPOLL_CTL_ADD, descriptor, &wait) == 0;
}

std::vector<DeviceEvent> LocalWriterEvents::Take() {
  const std::string name = path_ + "#{" + kWriterInterfaceClass + "}";
  std::vector<DeviceEvent> events;
  const bool news = TakeNews();
  if (connection_ >= 0 && (news || HasEnded())) {
    Close(connection_);
    events.push_back({DeviceEvent::Kind::Removal, name});
  }
  if (news && Connect()) events.push_back({DeviceEvent::Kind::Arrival, name});
  return events;
}

bool LocalWriterEvents::Connect() {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path_.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, path_.data(), path_.size());
  connection_ = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (connection_ >= 0 &&
      (connect(connection_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 || !WaitFor(connection_)))
    Close(connection_);
  return connection_ >= 0;
}

// The writer says nothing unasked: what can be read is its end.
bool LocalWriterEvents::HasEnded() const {
  pollfd wait{connection_, POLLIN, 0};
  return poll(&wait, 1, 0) > 0;
}

bool LocalWriterEvents::TakeNews() {
  bool news = false;
  alignas(inotify_event) char buffer[4096];
  for (;;) {
    const ssize_t count = watch_ < 0 ? 0 : read(watch_, buffer, sizeof buffer);
    if (count <= 0) return news;
    for (ssize_t at = 0; at < count;) {
      inotify_event event{};
      std::memcpy(&event, buffer + at, sizeof event);
      const char* moved = buffer + at + sizeof event;  // zero-terminated
      // A queue that ran over may have lost ours.
      if ((event.mask & IN_Q_OVERFLOW) != 0 || (event.len > 0 && name_ == moved)) news = true;
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
}

}  // namespace pyxis
