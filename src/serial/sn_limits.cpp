#include "serial/sn_limits.h"

#include "catalogue/chip_catalogue.h"
#include "catalogue/profiles.h"

namespace pyxis {

const SerialPlace& SerialPlaceOf(std::string_view chip) {
  const Ic* ic = IcOfName(chip);
  return ic == nullptr ? kNoSerial : ic->serial;
}

}  // namespace pyxis
