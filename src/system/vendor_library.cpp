#include "system/vendor_library.h"

#include <dlfcn.h>

#include "platform/files.h"

namespace pyxis {

namespace {

constexpr char kLibraryName[] = "/libvelmarapi.so";

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

}  // namespace

bool VendorLibrary::Load() {
  if (read_ != nullptr) return true;
  // Stays loaded until the process ends.
  void* library = dlopen((ProgramDirectory() + kLibraryName).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return false;
  const bool whole = Find(library, "VMOpen", open_) && Find(library, "VMSetTimeout", setTimeout_) &&
                     Find(library, "VMClose", close_) && Find(library, "VMWrite", write_) &&
                     Find(library, "VMRead", read_);
  if (!whole) {
    read_ = nullptr;
    dlclose(library);
  }
  return whole;
}

int VendorLibrary::VMOpen(int model, int a, int b) { return Load() ? open_(model, a, b) : kVendorLibraryMissing; }

void VendorLibrary::VMSetTimeout(int timeout) {
  if (read_ != nullptr) setTimeout_(timeout);
}

void VendorLibrary::VMClose() {
  if (read_ != nullptr) close_();
}

int VendorLibrary::VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) {
  return read_ != nullptr ? write_(opcode, data, length) : kVendorLibraryMissing;
}

int VendorLibrary::VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) {
  return read_ != nullptr ? read_(opcode, buffer, length) : kVendorLibraryMissing;
}

}  // namespace pyxis
