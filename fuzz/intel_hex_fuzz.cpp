// Any bytes as an Intel HEX file, in all three modes.
#include "intake/file_readers.h"
#include "scratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pyxis;
  if (size == 0) return 0;
  fuzz::Scratch scratch;
  scratch.Put("a.hex", data + 1, size - 1);
  ReadIntelHex(scratch.Path("a.hex"), scratch.Path("a.bin"), data[0] % 4);
  return 0;
}
