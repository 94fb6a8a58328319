// The USB redirection door: the stand-in writer as a device that a virtual machine's usb-redir sees, so that a guest
// with a real kernel and the real libusb reaches the same model.
#pragma once

#include <poll.h>
#include <usbredirproto.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <vector>

#include "standin/frame_door.h"
#include "standin/local_socket.h"

struct usbredirparser;

namespace pyxis::standin {

// One connection, on a socket that it owns.
class Redirection {
 public:
  Redirection(WriterModel& model, int socket);
  ~Redirection();
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

  pollfd Wait() const;
  bool Serve();  // whatever can be read and written now; false: the peer has gone or talks nonsense

 private:
  struct Callbacks;
  struct Transfer {
    std::uint64_t id;
    usb_redir_bulk_packet_header header;
    std::vector<std::uint8_t> data;
  };
  void Announce();
  void AnswerTransfers();
  void Answer(const Transfer& transfer, int status, std::span<std::uint8_t> in, std::uint32_t moved = 0);
  WriterModel& model_;
  FrameDoor door_;
  Descriptor socket_;
  bool announced_ = false;
  std::deque<Transfer> transfers_;  // not answered yet, oldest first
  usbredirparser* parser_;
};

// Listens on a TCP port of this machine alone; one guest at a time.
class RedirectionServer {
 public:
  RedirectionServer(WriterModel& model, std::uint16_t port);

  bool Listening() const { return bool{listener_}; }
  void AddWaits(std::vector<pollfd>& waits) const;
  void Serve();

 private:
  WriterModel& model_;
  Descriptor listener_;
  std::unique_ptr<Redirection> guest_;
};

}  // namespace pyxis::standin
