#include "intel_hex_writer.h"

#include <algorithm>

#include "platform/text.h"

namespace pyxis::folder {

namespace {
constexpr std::size_t kRecordBytes = 16;
}

Bytes ToIntelHex(const Bytes& image) {
  std::string text;
  for (std::size_t at = 0; at < image.size(); at += kRecordBytes) {
    const std::size_t count = std::min(kRecordBytes, image.size() - at);
    std::size_t sum = count + (at >> 8) + at;
    text += Printf(":%02zX%04zX00", count, at);
    for (std::size_t i = at; i < at + count; ++i) {
      text += Printf("%02X", image[i]);
      sum += image[i];
    }
    text += Printf("%02zX\r\n", (0x100 - (sum & 0xFF)) & 0xFF);
  }
  text += ":00000001FF\r\n";
  return {text.begin(), text.end()};
}

}  // namespace pyxis::folder
