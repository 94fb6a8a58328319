// The update library: one call that blocks until the update client has finished. The real body loads it from beside
// the program; a missing library gives kUpdateAgentMissing. Other results than those named here mean nothing to the
// program.
#pragma once

#include <cstdint>

namespace pyxis {

inline constexpr std::int32_t kUpdateAgentMissing = -1;
inline constexpr std::int32_t kUpdateTakenCareOf = 0;  // found and fetched: the old version should end
inline constexpr std::int32_t kVersionIsCurrent = 4;

class UpdateAgent {
 public:
  virtual ~UpdateAgent() = default;
  // `request`: zero-terminated SOAP text. The library also gets the main window and the program's instance.
  virtual std::int32_t CallUpdateAgent(const char* request) = 0;
};

}  // namespace pyxis
