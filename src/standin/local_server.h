// The local-socket door of the stand-in writer.
#pragma once

#include <poll.h>

#include <map>
#include <string>
#include <vector>

#include "standin/local_socket.h"
#include "standin/writer_model.h"

namespace pyxis::standin {

class LocalServer {
 public:
  // The socket takes its name when it accepts, and takes the place of one that an ended process has left.
  LocalServer(WriterModel& model, std::string path);
  ~LocalServer();  // removes the socket, unless another server has taken its name
  LocalServer(const LocalServer&) = delete;
  LocalServer& operator=(const LocalServer&) = delete;

  bool Listening() const { return bool{listener_}; }
  void AddWaits(std::vector<pollfd>& waits) const;
  // Serves whatever waits, for at most that long. False when the listener is gone.
  bool Serve(int timeoutMs);

 private:
  void Accept();
  void Drop(int client);
  void AnswerAll();
  // False: the client has gone or talks nonsense.
  bool Receive(int client);
  bool Answer(int client, std::vector<std::uint8_t>& pending);

  WriterModel& model_;
  std::string path_;
  Descriptor listener_;
  ino_t inode_ = 0;                                   // of our socket
  std::map<int, std::vector<std::uint8_t>> clients_;  // what each has sent so far
};

}  // namespace pyxis::standin
