#include "serial/sn_limits.h"

#include "catalogue/chip_catalogue.h"

namespace pyxis {

const SerialPlace& SerialPlaceOf(std::string_view chip) { return IcOrUnknown(chip).serial; }

}  // namespace pyxis
