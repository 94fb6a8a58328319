// The animated cursor of a long operation.
#pragma once

#include <string>

#include "shell/ground/app_state.h"

namespace pyxis {

inline constexpr char kTaskCursor[] = "metronom.ani";
inline constexpr char kLoadCursor[] = "dinosaur.ani";  // Load File, Update F/W, Check new version

// Shows while it lives; without the file there is none.
class BusyCursor {
 public:
  explicit BusyCursor(const char* fileName, const std::string& folder = TheAppState().program.AppDir);
  ~BusyCursor();
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
};

}  // namespace pyxis
