#include "system/update_library.h"

#include <utility>

namespace pyxis {

UpdateLibrary::UpdateLibrary(std::string folder) : folder_(std::move(folder)) {}

bool UpdateLibrary::Load() {
  if (call_ != nullptr) return true;
  if (!library_.Load(folder_, "UpdateAgent")) return false;
  if (library_.Find("CallUpdateAgent", call_)) return true;
  library_.Drop();
  return false;
}

std::int32_t UpdateLibrary::CallUpdateAgent(const char* request) {
  return Load() ? call_(request, window_, ProgramInstance()) : kUpdateAgentMissing;
}

}  // namespace pyxis
