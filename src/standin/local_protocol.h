// How the vendor library's client talks to a stand-in writer that runs as a process: requests and answers over a local
// socket, each complete before the next. A writer that stands still answers nothing but Fault.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pyxis::standin {

// Request: kind, opcode, two zero bytes, length (32 bits, low byte first); the data of a write, or the text of a fault
// (standin/faults.h), follow.
// Answer: one zero byte for "done"; a read's data follow. What makes no sense ends the connection.
inline constexpr std::size_t kRequestSize = 8;
inline constexpr std::uint32_t kLargestRequest = 1 << 20;  // bytes of data

enum class RequestKind : std::uint8_t { Open = 'O', Write = 'W', Read = 'R', Fault = 'F' };

}  // namespace pyxis::standin
