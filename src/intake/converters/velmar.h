// What the .velmar families share: 16-bit words, low byte first, that go to the package in file order.
#pragma once

#include <cstdint>

#include "intake/converters/frame.h"

namespace pyxis {

// The low nibble of the first byte is 7; the whole second; the high nibble of the third.
bool VelmarIdMatches(const Image& image, std::size_t offset, std::uint8_t second, std::uint8_t thirdHigh);

// The configuration word lies behind the image's bytes, the ID behind that.
constexpr std::size_t VelmarIdOffset(std::uint16_t imageBytes) { return imageBytes + std::size_t{2}; }

// Copies `imageBytes` bytes and sums the words that end at `sumLength` or before.
void CopyVelmarImage(ConversionFrame& frame, std::size_t imageBytes, std::int32_t sumLength);

// The configuration word behind the image goes to the package, to SystemConfigWord and into the checksum, where
// `sumSet` is set in it.
std::uint16_t CopyVelmarConfig(ConversionFrame& frame, std::size_t imageBytes, std::uint16_t sumSet);

inline constexpr std::uint16_t kUnusedConfigBits = 0x1F;

}  // namespace pyxis
