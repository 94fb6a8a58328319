#include "serial/big_number.h"

#include "platform/text.h"

namespace pyxis {

std::string BigNumber::Hex() const {
  char buffer[80];  // a sum of two 32-digit numbers needs 33
  bdConvToHex(number_, buffer, sizeof buffer);
  return ToUpper(buffer);
}

}  // namespace pyxis
