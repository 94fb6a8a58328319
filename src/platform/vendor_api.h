// The five calls of the access library velmarapi. The real body loads the shared library from beside the program at
// the first VMOpen; without it VMOpen answers kVendorLibraryMissing.
#pragma once

#include <cstdint>

namespace pyxis {

inline constexpr int kVendorLibraryMissing = -1;
inline constexpr int kVendorModel = 0x9899;  // the first argument of VMOpen: the writer, of either model

class VendorApi {
 public:
  virtual ~VendorApi() = default;
  // 0: the writer is there and open.
  virtual int VMOpen(int model, int a, int b) = 0;
  virtual void VMSetTimeout(int timeout) = 0;
  virtual void VMClose() = 0;
  virtual int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) = 0;
  virtual int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) = 0;
};

}  // namespace pyxis
