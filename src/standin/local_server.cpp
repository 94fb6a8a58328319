#include "standin/local_server.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>

#include "platform/byte_order.h"
#include "standin/local_protocol.h"

namespace pyxis::standin {

namespace {

constexpr int kBacklog = 8;

// A client that doesn't take its answer within this time is dropped.
constexpr timeval kSendTimeout{2, 0};

}  // namespace

LocalServer::LocalServer(WriterModel& model, std::string path) : model_(model), path_(std::move(path)) {
  const std::size_t slash = path_.rfind('/');
  const std::string making = path_.substr(0, slash + 1) + ".w" + std::to_string(getpid());
  const auto address = LocalAddress(making);
  if (!address || !LocalAddress(path_)) return;
  unlink(making.c_str());
  Descriptor listener = NewSocket();
  if (bind(*listener, reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0 &&
      listen(*listener, kBacklog) == 0 && (inode_ = InodeOf(making)) != 0 &&
      std::rename(making.c_str(), path_.c_str()) == 0) {
    listener_ = std::move(listener);
  } else {
    unlink(making.c_str());
  }
}

// The door closes first: who sees its connection end finds no writer any more.
LocalServer::~LocalServer() {
  if (listener_) {
    listener_.Close();
    if (InodeOf(path_) == inode_) unlink(path_.c_str());
  }
  for (const auto& [client, pending] : clients_) close(client);
}

void LocalServer::AddWaits(std::vector<pollfd>& waits) const {
  waits.push_back({*listener_, POLLIN, 0});
  for (const auto& [client, pending] : clients_) waits.push_back({client, POLLIN, 0});
}

bool LocalServer::Serve(int timeoutMs) {
  if (!listener_) return false;
  std::vector<pollfd> waits;
  AddWaits(waits);
  if (poll(waits.data(), waits.size(), timeoutMs) <= 0) return true;
  if (waits[0].revents != 0) Accept();
  for (std::size_t i = 1; i < waits.size(); ++i) {
    if (waits[i].revents == 0) continue;
    const int client = waits[i].fd;
    if (Receive(client) && (waits[i].revents & POLLHUP) == 0) continue;
    // Who has hung up waits for no answer, and what it asked last isn't done any more.
    if (!clients_[client].empty()) model_.LoseHost();
    Drop(client);
  }
  AnswerAll();
  return true;
}

// A request may end the stall that holds those of others.
void LocalServer::AnswerAll() {
  for (bool again = true; again;) {
    again = false;
    for (auto next = clients_.begin(); next != clients_.end();) {
      auto& [client, pending] = *next++;
      const std::size_t before = pending.size();
      if (!Answer(client, pending)) {
        Drop(client);
      } else if (pending.size() != before) {
        again = true;
      }
    }
  }
}

void LocalServer::Accept() {
  const int client = accept4(*listener_, nullptr, nullptr, SOCK_CLOEXEC);
  if (client < 0) return;
  setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &kSendTimeout, sizeof kSendTimeout);
  clients_[client];
}

void LocalServer::Drop(int client) {
  close(client);
  clients_.erase(client);
}

bool LocalServer::Receive(int client) {
  std::uint8_t buffer[65536];
  const ssize_t count = recv(client, buffer, sizeof buffer, 0);
  if (count <= 0) return false;
  std::vector<std::uint8_t>& pending = clients_[client];
  pending.insert(pending.end(), buffer, buffer + count);
  return true;
}

bool LocalServer::Answer(int client, std::vector<std::uint8_t>& pending) {
  if (pending.size() < kRequestSize) return true;
  const auto kind = static_cast<RequestKind>(pending[0]);
  const std::uint8_t opcode = pending[1];
  const std::uint32_t length = LoadLe32(&pending[4]);
  if (length > kLargestRequest) return false;
  const bool sends = kind == RequestKind::Write || kind == RequestKind::Fault;
  const std::size_t used = kRequestSize + (sends ? length : 0);
  if (pending.size() < used) return true;
  const auto sent = std::span(pending).subspan(kRequestSize, used - kRequestSize);
  if (kind == RequestKind::Fault) {
    if (!SetFault(model_.faults, {reinterpret_cast<const char*>(sent.data()), sent.size()})) return false;
  } else {
    const Line line = kind == RequestKind::Open ? model_.Now() : model_.NextTransfer();
    if (line != Line::Answers) return line == Line::Silent;
  }
  std::vector<std::uint8_t> answer{0};
  switch (kind) {
    case RequestKind::Open:
    case RequestKind::Fault:
      break;
    case RequestKind::Write:
      model_.Write(opcode, sent, Door::Vendor);
      break;
    case RequestKind::Read: {
      const std::vector<std::uint8_t> data = model_.Read(opcode, length, Door::Vendor);
      answer.insert(answer.end(), data.begin(), data.end());
      break;
    }
    default:
      return false;
  }
  pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(used));
  return SendAll(client, answer);
}

}  // namespace pyxis::standin
