// The update library UpdateAgent, a shared library in a folder of its own choice: beside the program.
#pragma once

#include <string>

#include "platform/program_folder.h"
#include "platform/update_agent.h"
#include "system/shared_library.h"

namespace pyxis {

class UpdateLibrary : public UpdateAgent {
 public:
  explicit UpdateLibrary(std::string folder = LibraryDirectory());
  // The system's handle of the main window, once there is one.
  void SetMainWindow(void* window) { window_ = window; }
  // Loads the library at the first call that finds it.
  std::int32_t CallUpdateAgent(const char* request) override;

 private:
  bool Load();
  std::string folder_;
  void* window_ = nullptr;
  SharedLibrary library_;
  std::int32_t (*call_)(const char*, void*, void*) = nullptr;  // request, main window, program instance
};

}  // namespace pyxis
