#include <cstdio>
#include <nlohmann/json.hpp>

#include "job.h"

namespace pyxis::job {

void Print(const nlohmann::json& object) {
  // Paths may hold any bytes; those that are no UTF-8 are shown as replacement characters.
  const std::string line = object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

}  // namespace pyxis::job
