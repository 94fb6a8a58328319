#include "standin/local_client.h"

#include <sys/socket.h>

#include "platform/byte_order.h"
#include "standin/local_protocol.h"

namespace pyxis::standin {

namespace {

// A sound writer answers a new connection at once.
constexpr std::chrono::milliseconds kReconnectLimit{250};

bool SetLimit(int socket, std::chrono::milliseconds limit) {
  const timeval value{limit.count() / 1000, limit.count() % 1000 * 1000};
  return setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &value, sizeof value) == 0 &&
         setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &value, sizeof value) == 0;
}

bool ReceiveAll(int socket, std::span<std::uint8_t> data) {
  while (!data.empty()) {
    const ssize_t received = recv(socket, data.data(), data.size(), 0);
    if (received <= 0) return false;
    data = data.subspan(static_cast<std::size_t>(received));
  }
  return true;
}

}  // namespace

bool LocalClient::Open(const std::string& path) {
  Close();
  path_ = path;
  open_ = Connect(limit_) && Ask(RequestKind::Open, 0, 0, {}, {});
  return open_;
}

void LocalClient::Close() {
  socket_.Close();
  open_ = false;
}

bool LocalClient::Connect(std::chrono::milliseconds limit) {
  socket_ = NewSocket();
  if (SetLimit(*socket_, limit) && ConnectTo(*socket_, path_)) return true;
  socket_.Close();
  return false;
}

void LocalClient::SetTimeout(std::chrono::milliseconds limit) {
  limit_ = limit;
  SetLimit(*socket_, limit_);
}

bool LocalClient::Ready() {
  if (!open_ || socket_) return open_;
  return Connect(kReconnectLimit) && Ask(RequestKind::Open, 0, 0, {}, {}) && SetLimit(*socket_, limit_);
}

bool LocalClient::Ask(RequestKind kind, std::uint8_t opcode, std::size_t length, std::span<const std::uint8_t> out,
                      std::span<std::uint8_t> in) {
  std::uint8_t request[kRequestSize] = {static_cast<std::uint8_t>(kind), opcode};
  StoreLe32(request + 4, static_cast<std::uint32_t>(length));
  std::uint8_t done = 1;
  const bool good = SendAll(*socket_, request) && SendAll(*socket_, out) && ReceiveAll(*socket_, {&done, 1}) &&
                    done == 0 && ReceiveAll(*socket_, in);
  if (!good) socket_.Close();
  return good;
}

bool LocalClient::Write(std::uint8_t opcode, std::span<const std::uint8_t> data) {
  return Ready() && Ask(RequestKind::Write, opcode, data.size(), data, {});
}

bool LocalClient::Read(std::uint8_t opcode, std::span<std::uint8_t> buffer) {
  return Ready() && Ask(RequestKind::Read, opcode, buffer.size(), {}, buffer);
}

bool LocalClient::Tell(const std::string& path, std::string_view fault) {
  Close();
  path_ = path;
  const std::span text(reinterpret_cast<const std::uint8_t*>(fault.data()), fault.size());
  const bool good = Connect(limit_) && Ask(RequestKind::Fault, 0, text.size(), text, {});
  socket_.Close();
  return good;
}

}  // namespace pyxis::standin
