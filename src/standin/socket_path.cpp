#include "standin/socket_path.h"

#include <unistd.h>

#include <cstdlib>

namespace pyxis::standin {

std::string SocketPath() {
  if (const char* path = std::getenv("PYXISWRITER_SOCKET"); path != nullptr && *path != '\0') return path;
  if (const char* folder = std::getenv("XDG_RUNTIME_DIR"); folder != nullptr && *folder != '\0')
    return std::string(folder) + "/pyxiswriter.sock";
  return "/tmp/pyxiswriter-" + std::to_string(getuid()) + ".sock";
}

}  // namespace pyxis::standin
