// velmarapi as a shared library in a folder of its own choice, beside the program, loaded at the first VMOpen.
#pragma once

#include <string>

#include "platform/program_folder.h"
#include "platform/vendor_api.h"
#include "system/shared_library.h"

namespace pyxis {

class VendorLibrary : public VendorApi {
 public:
  explicit VendorLibrary(std::string folder = LibraryDirectory());
  int VMOpen(int model, int a, int b) override;
  void VMSetTimeout(int timeout) override;
  void VMClose() override;
  int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) override;
  int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) override;

 private:
  bool Load();
  std::string folder_;
  SharedLibrary library_;
  // The library's exports, with the C calling convention.
  int (*open_)(int, int, int) = nullptr;
  void (*setTimeout_)(int) = nullptr;
  void (*close_)() = nullptr;
  int (*write_)(std::uint8_t, const std::uint8_t*, std::uint32_t) = nullptr;
  int (*read_)(std::uint8_t, std::uint8_t*, std::uint32_t) = nullptr;
};

}  // namespace pyxis
