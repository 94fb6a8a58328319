#include "system/shared_library.h"

#include <dlfcn.h>

namespace pyxis {

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

}  // namespace pyxis
