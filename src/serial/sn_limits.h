// How far a serial number may reach in each IC's memory.
#pragma once

#include <string_view>

#include "catalogue/ic.h"

namespace pyxis {

// An IC that no record tells of takes no serial number.
const SerialPlace& SerialPlaceOf(std::string_view chip);

}  // namespace pyxis
