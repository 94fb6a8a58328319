#include "system/shared_library.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace pyxis {

#ifdef _WIN32

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

#else

bool SharedLibrary::Load(const std::string& folder, const std::string& name) {
  if (handle_ == nullptr) handle_ = dlopen((folder + "/lib" + name + ".so").c_str(), RTLD_NOW | RTLD_LOCAL);
  return handle_ != nullptr;
}

void SharedLibrary::Drop() {
  if (handle_ != nullptr) dlclose(handle_);
  handle_ = nullptr;
}

void* SharedLibrary::Export(const char* name) const { return dlsym(handle_, name); }

void* ProgramInstance() {
  static void* const self = dlopen(nullptr, RTLD_NOW);
  return self;
}

#endif

}  // namespace pyxis
