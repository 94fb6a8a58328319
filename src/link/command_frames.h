// The frames of the frame link: CommandBlock, data in chunks of 512 bytes, StatusBlock. Results: non-zero is success.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

inline constexpr std::size_t kFrameBlockSize = 13;  // CommandBlock and StatusBlock
inline constexpr std::uint32_t kChunkSize = 512;

using CommandBlock = std::array<std::uint8_t, kFrameBlockSize>;
using StatusBlock = std::array<std::uint8_t, kFrameBlockSize>;

// "USBC", four zero bytes, the length low byte first, the opcode.
CommandBlock MakeCommandBlock(std::uint32_t length, std::uint8_t opcode);

int SendBlock(const std::uint8_t* data, std::uint32_t length, std::uint8_t opcode);
int ReceiveBlock(std::uint8_t* buffer, std::uint32_t length, std::uint8_t opcode);
// 26 bytes of text without a terminator; never touches the progress bar.
int ReadIdentity(std::uint8_t* buffer);

}  // namespace pyxis
