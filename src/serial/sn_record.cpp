#include "serial/sn_record.h"

#include <algorithm>

namespace pyxis {

namespace {
SnRecord theSnRecord;
}

SnRecord& TheSnRecord() { return theSnRecord; }

void ResetSnRecord() { theSnRecord = SnRecord{}; }

std::string HexPadded(const std::string& text) {
  const std::size_t length = theSnRecord.SnLength;
  const std::size_t width = length <= 16 ? 2 * length : 0;
  return std::string(width - std::min(width, text.size()), '0') + text;
}

}  // namespace pyxis
