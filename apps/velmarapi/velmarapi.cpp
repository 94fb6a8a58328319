// The access library's stand-in: a thin client of a stand-in writer that runs as a process. Calls block for at most the
// time-out; a writer that has gone makes them fail.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "platform/byte_order.h"
#include "standin/local_protocol.h"
#include "standin/socket_path.h"

namespace {

using pyxis::standin::kRequestSize;
using pyxis::standin::RequestKind;

constexpr int kGood = 0;
constexpr int kFailed = -1;
constexpr int kVendorModel = 0x9899;

int writerSocket = -1;
long timeoutSeconds = 5;

void SetTimeouts() {
  const timeval limit{timeoutSeconds, 0};
  setsockopt(writerSocket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
  setsockopt(writerSocket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
}

void Close() {
  if (writerSocket >= 0) close(writerSocket);
  writerSocket = -1;
}

bool Send(const std::uint8_t* data, std::size_t count) {
  while (count > 0) {
    const ssize_t sent = send(writerSocket, data, count, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    data += sent;
    count -= static_cast<std::size_t>(sent);
  }
  return true;
}

bool Receive(std::uint8_t* data, std::size_t count) {
  while (count > 0) {
    const ssize_t received = recv(writerSocket, data, count, 0);
    if (received <= 0) return false;
    data += received;
    count -= static_cast<std::size_t>(received);
  }
  return true;
}

int Ask(RequestKind kind, std::uint8_t opcode, const std::uint8_t* out, std::uint8_t* in, std::uint32_t length) {
  if (writerSocket < 0) return kFailed;
  std::uint8_t request[kRequestSize] = {static_cast<std::uint8_t>(kind), opcode};
  pyxis::StoreLe32(request + 4, length);
  std::uint8_t done = 1;
  const bool good = Send(request, sizeof request) && (out == nullptr || Send(out, length)) && Receive(&done, 1) &&
                    done == 0 && (in == nullptr || Receive(in, length));
  if (!good) Close();  // the two sides no longer agree where they are
  return good ? kGood : kFailed;
}

}  // namespace

extern "C" {

int VMOpen(int model, int, int) {
  Close();
  if (model != kVendorModel) return kFailed;
  const std::string path = pyxis::standin::SocketPath();
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return kFailed;
  std::memcpy(address.sun_path, path.data(), path.size());
  writerSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (writerSocket < 0) return kFailed;
  SetTimeouts();
  if (connect(writerSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    Close();
    return kFailed;
  }
  return Ask(RequestKind::Open, 0, nullptr, nullptr, 0);
}

void VMSetTimeout(int timeout) {
  timeoutSeconds = timeout > 0 ? timeout : 1;
  if (writerSocket >= 0) SetTimeouts();
}

void VMClose() { Close(); }

int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) {
  static const std::uint8_t nothing = 0;
  return Ask(RequestKind::Write, opcode, data == nullptr ? &nothing : data, nullptr, data == nullptr ? 0 : length);
}

int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) {
  return Ask(RequestKind::Read, opcode, nullptr, buffer, length);
}

}  // extern "C"
