// The other end of the local socket: what the vendor library asks of a stand-in writer that runs as a process.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "standin/local_socket.h"

namespace pyxis::standin {

enum class RequestKind : std::uint8_t;

class LocalClient {
 public:
  // True when a writer answers there.
  bool Open(const std::string& path);
  void Close();
  // How long a call waits, at most.
  void SetTimeout(std::chrono::milliseconds limit);

  // A call that fails loses its place in the talk, so the next one connects anew. A writer that stands still takes it,
  // but doesn't answer: that is found out in a short time, so that an operation of many calls ends.
  bool Write(std::uint8_t opcode, std::span<const std::uint8_t> data);
  bool Read(std::uint8_t opcode, std::span<std::uint8_t> buffer);

  // Sets a fault (standin/faults.h) of the writer there, whether or not it stands still.
  bool Tell(const std::string& path, std::string_view fault);

 private:
  bool Connect(std::chrono::milliseconds limit);
  bool Ready();
  bool Ask(RequestKind kind, std::uint8_t opcode, std::size_t length, std::span<const std::uint8_t> out,
           std::span<std::uint8_t> in);

  std::string path_;
  std::chrono::milliseconds limit_{5000};
  bool open_ = false;
  Descriptor socket_;
};

}  // namespace pyxis::standin
