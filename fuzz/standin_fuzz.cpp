// Any bytes as transfers to the stand-in writer's frame door, and as its state file.
#include "scratch.h"
#include "standin/frame_door.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace pyxis::standin;
  const pyxis::fuzz::Scratch scratch;
  WriterModel writer;
  FrameDoor door(writer);
  std::uint8_t buffer[512];
  for (std::size_t at = 0; at + 1 < size;) {
    const std::size_t count = data[at] % 64;
    if ((data[at] & 0x80) != 0) {
      door.In(buffer, static_cast<int>(count));
      ++at;
    } else {
      const std::size_t taken = count < size - at - 1 ? count : size - at - 1;
      door.Out(data + at + 1, static_cast<int>(taken));
      at += taken + 1;
    }
  }
  scratch.Put("state", data, size);
  writer.Restore(scratch.Path("state"));
  return 0;
}
