// How an Intel HEX file becomes a flat image.
#pragma once

namespace pyxis {

enum ReadMode : int {
  kReadBytes = 1,       // fill FF, addresses count bytes
  kReadBlankWords = 2,  // fill FF 3F, the first record's byte count may select word addresses
  kReadZeroWords = 3,   // fill 00, likewise
};

}  // namespace pyxis
