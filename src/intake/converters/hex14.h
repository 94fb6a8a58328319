// What the two families of 14-bit ICs share.
#pragma once

#include <cstdint>

namespace pyxis {

inline constexpr std::uint16_t kBlankWord = 0x3FFF;
inline constexpr std::uint16_t kWordMask = 0x3FFF;
// The running checksum behind this word (counted from 1) is kept as PartialChecksum.
inline constexpr std::uint32_t kPartialChecksumWord = 598;

// Keeps PartialChecksum when word `number` has just been summed.
void KeepPartialChecksum(std::uint32_t number);
// The checksum keeps 14 bits.
void MaskChecksum();

}  // namespace pyxis
