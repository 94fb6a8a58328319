// What both ends of the stand-in writer's local socket need.
#pragma once

#include <sys/types.h>
#include <sys/un.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace pyxis::standin {

// Owns a file descriptor, or none, which is -1: a call with that fails.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  int operator*() const { return number_; }
  explicit operator bool() const { return number_ != -1; }
  void Close() { *this = Descriptor(); }

 private:
  int number_;
};

// A stream socket of this machine. `flags`: SOCK_NONBLOCK or none.
Descriptor NewSocket(int flags = 0);

// None for a path that is longer than an address can hold.
std::optional<sockaddr_un> LocalAddress(const std::string& path);

// False when nobody accepts there.
bool ConnectTo(int socket, const std::string& path);

// False when the other end is gone, or took too long where the socket has a limit.
bool SendAll(int socket, std::span<const std::uint8_t> data);

// Of the file that has this name now; 0 when there is none.
ino_t InodeOf(const std::string& path);

}  // namespace pyxis::standin
