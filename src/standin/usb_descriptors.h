// The stand-in writer's USB descriptors, and its answers to standard control requests.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace pyxis::standin {

struct ControlRequest {
  std::uint8_t requestType, request;
  std::uint16_t value, index, length;
};

// The data of a request from the device, at most `length` bytes, or empty data for one to the device that is taken.
// Nothing for a request that the device stalls.
std::optional<std::vector<std::uint8_t>> AnswerControl(const ControlRequest& request);

}  // namespace pyxis::standin
