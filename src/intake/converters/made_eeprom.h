// The name that the images made of raw EEPROM content bear: one IC's, whichever the image is for.
#pragma once

namespace pyxis {

inline constexpr char kMadeEepromName[] = "QVL11EEPROM";

}  // namespace pyxis
