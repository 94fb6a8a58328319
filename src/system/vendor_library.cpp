#include "system/vendor_library.h"

#include <utility>

namespace pyxis {

VendorLibrary::VendorLibrary(std::string folder) : folder_(std::move(folder)) {}

bool VendorLibrary::Load() {
  if (read_ != nullptr) return true;
  if (!library_.Load(folder_, "velmarapi")) return false;
  const bool whole = library_.Find("VMOpen", open_) && library_.Find("VMSetTimeout", setTimeout_) &&
                     library_.Find("VMClose", close_) && library_.Find("VMWrite", write_) &&
                     library_.Find("VMRead", read_);
  if (!whole) {
    read_ = nullptr;
    library_.Drop();
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
