#include <windows.h>

#include "system/shared_library.h"

namespace pyxis {

bool SharedLibrary::Load(const std::string& folder, const std::string& name) {
  if (handle_ == nullptr) handle_ = LoadLibraryA((folder + '\\' + name + ".dll").c_str());
  return handle_ != nullptr;
}

void SharedLibrary::Drop() {
  if (handle_ != nullptr) FreeLibrary(static_cast<HMODULE>(handle_));
  handle_ = nullptr;
}

void* SharedLibrary::Export(const char* name) const {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

void* ProgramInstance() { return GetModuleHandleA(nullptr); }

}  // namespace pyxis
