#include "standin/local_socket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

namespace pyxis::standin {

Descriptor::~Descriptor() {
  if (*this) close(number_);
}

Descriptor NewSocket(int flags) { return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0)); }

std::optional<sockaddr_un> LocalAddress(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return std::nullopt;
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

bool ConnectTo(int socket, const std::string& path) {
  const auto address = LocalAddress(path);
  return address && connect(socket, reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0;
}

bool SendAll(int socket, std::span<const std::uint8_t> data) {
  while (!data.empty()) {
    const ssize_t sent = send(socket, data.data(), data.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    data = data.subspan(static_cast<std::size_t>(sent));
  }
  return true;
}

ino_t InodeOf(const std::string& path) {
  struct stat found {};
  return stat(path.c_str(), &found) == 0 ? found.st_ino : 0;
}

}  // namespace pyxis::standin
