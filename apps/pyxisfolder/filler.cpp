#include "folder.h"

namespace pyxis::folder {

// FNV-1a over the seed, then xorshift.
Filler::Filler(const std::string& seed) : state_(2166136261U) {
  for (const char c : seed) state_ = (state_ ^ static_cast<std::uint8_t>(c)) * 16777619U;
  if (state_ == 0) state_ = 1;
}

std::uint32_t Filler::Next() {
  state_ ^= state_ << 13;
  state_ ^= state_ >> 17;
  state_ ^= state_ << 5;
  return state_;
}

}  // namespace pyxis::folder
