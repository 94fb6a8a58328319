// Intel HEX text from an image.
#pragma once

#include "folder.h"

namespace pyxis::folder {

// Records of 16 bytes, byte addresses from 0, the end record, CR LF line ends.
Bytes ToIntelHex(const Bytes& image);

}  // namespace pyxis::folder
