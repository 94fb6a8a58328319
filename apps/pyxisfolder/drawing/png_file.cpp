#include <algorithm>

#include "pyxisfolder/drawing/byte_writer.h"
#include "pyxisfolder/drawing/picture_files.h"

namespace pyxis::folder {

namespace {

// CRC-32 of the PNG format: polynomial 0xEDB88320, low bit first.
std::uint32_t CrcOf(const Bytes& bytes) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const std::uint8_t byte : bytes) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

// Adler-32 of the zlib format.
std::uint32_t AdlerOf(const Bytes& bytes) {
  constexpr std::uint32_t kPrime = 65521;
  std::uint32_t low = 1, high = 0;
  for (const std::uint8_t byte : bytes) {
    low = (low + byte) % kPrime;
    high = (high + low) % kPrime;
  }
  return (high << 16) | low;
}

// A zlib stream of stored blocks.
Bytes Stored(const Bytes& bytes) {
  constexpr std::size_t kLargestBlock = 65535;
  ByteWriter out;
  out.Byte(0x78).Byte(0x01);
  for (std::size_t at = 0; at < bytes.size(); at += kLargestBlock) {
    const std::size_t count = std::min(kLargestBlock, bytes.size() - at);
    const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    out.Byte(at + count == bytes.size() ? 1 : 0).Le16(count).Le16(~count);
    out.Append(Bytes(from, from + static_cast<std::ptrdiff_t>(count)));
  }
  return out.Be32(AdlerOf(bytes)).Take();
}

void PutChunk(ByteWriter& out, std::string_view kind, const Bytes& data) {
  const Bytes checked = ByteWriter().Text(kind).Append(data).Take();
  out.Be32(data.size()).Append(checked).Be32(CrcOf(checked));
}

}  // namespace

Bytes MakePng(const Canvas& picture) {
  ByteWriter lines;
  for (int y = 0; y < picture.Height(); ++y) {
    lines.Byte(0);  // no filter
    for (int x = 0; x < picture.Width(); ++x) {
      const Color c = picture.At(x, y);
      lines.Byte(c.r).Byte(c.g).Byte(c.b).Byte(c.a);
    }
  }
  ByteWriter header;
  header.Be32(static_cast<std::size_t>(picture.Width())).Be32(static_cast<std::size_t>(picture.Height()));
  header.Byte(8).Byte(6).Byte(0).Byte(0).Byte(0);  // 8 bits, red green blue alpha
  ByteWriter out;
  out.Byte(0x89).Text("PNG\r\n\x1A\n");
  PutChunk(out, "IHDR", header.Take());
  PutChunk(out, "IDAT", Stored(lines.Take()));
  PutChunk(out, "IEND", {});
  return out.Take();
}

}  // namespace pyxis::folder
