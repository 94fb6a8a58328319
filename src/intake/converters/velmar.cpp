#include "intake/converters/velmar.h"

namespace pyxis {

namespace {
constexpr std::uint16_t kVelmarSummedBits = 0x7FFF;
constexpr std::uint8_t kIdFirst = 7;
}  // namespace

bool VelmarIdMatches(const Image& image, std::size_t offset, std::uint8_t second, std::uint8_t thirdHigh) {
  return (image.Byte(offset) & kLowNibble) == kIdFirst && image.Byte(offset + 1) == second &&
         image.Byte(offset + 2) >> 4 == thirdHigh;
}

void CopyVelmarImage(ConversionFrame& frame, std::size_t imageBytes, std::int32_t sumLength) {
  for (std::size_t at = 0; at < imageBytes; at += 2) {
    frame.CopyPair(at);
    if (static_cast<std::int32_t>(at) + 2 <= sumLength) frame.Sum(frame.image.Le16(at));
  }
}

std::uint16_t CopyVelmarConfig(ConversionFrame& frame, std::size_t imageBytes, std::uint16_t sumSet) {
  const std::uint16_t config = frame.image.Le16(imageBytes);
  frame.CopyPair(imageBytes);
  frame.state.SystemConfigWord = config;
  frame.Sum((config & kVelmarSummedBits) | sumSet);
  return config;
}

}  // namespace pyxis
