// A disk that is full from a size of a file on.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace pyxis::test {

// While it lives, no file of this process grows beyond so many bytes: a write that would fails as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit full = before_;
    full.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_{};
};

}  // namespace pyxis::test
