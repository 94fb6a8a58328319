// What the families of 14-bit words share.
#pragma once

#include <cstdint>

namespace pyxis {

inline constexpr std::uint16_t kBlankWord = 0x3FFF;
inline constexpr std::uint16_t kWordMask = 0x3FFF;
// The running checksum behind this word (counted from 1) is kept as PartialChecksum.
inline constexpr std::uint32_t kPartialChecksumWord = 598;

}  // namespace pyxis
