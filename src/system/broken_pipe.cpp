#include "system/broken_pipe.h"

#include <csignal>

namespace pyxis {

void IgnoreBrokenPipes() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_IGN);
#endif
}

}  // namespace pyxis
