// A shared library that lies in a given folder.
#pragma once

#include <string>

namespace pyxis {

class SharedLibrary {
 public:
  // Loads "lib<name>.so" of the folder, on Windows "<name>.dll". Stays loaded until the process ends, unless dropped.
  bool Load(const std::string& folder, const std::string& name);
  bool IsLoaded() const { return handle_ != nullptr; }
  void Drop();

  // An export with the C calling convention, into a function pointer; false when there is none.
  template <typename Function>
  bool Find(const char* name, Function& function) const {
    function = reinterpret_cast<Function>(Export(name));
    return function != nullptr;
  }

 private:
  void* Export(const char* name) const;
  void* handle_ = nullptr;
};

// The running program itself, as a module handle of the system.
void* ProgramInstance();

}  // namespace pyxis
