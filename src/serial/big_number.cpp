#include "serial/big_number.h"

#include "platform/text.h"

namespace pyxis {

std::string BigNumber::Hex() const {
  char buffer[80];  // a sum of two 32-digit numbers needs 33
  bdConvToHex(number_, buffer, sizeof buffer);
  return ToUpper(buffer);
}

std::string WithoutPrefix(const std::string& text) {
  return text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X') ? text.substr(2) : text;
}

}  // namespace pyxis
