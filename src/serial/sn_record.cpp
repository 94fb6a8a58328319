#include "serial/sn_record.h"

#include <algorithm>

namespace pyxis {

namespace {
SnRecord theSnRecord;
}

SnRecord& TheSnRecord() { return theSnRecord; }

void ResetSnRecord() { theSnRecord = SnRecord{}; }

std::string HexPadded(const std::string& text) {
  if (theSnRecord.SnLength > kSerialBytes) return text;
  const std::size_t width = std::size_t{2} * theSnRecord.SnLength;
  return std::string(width - std::min(width, text.size()), '0') + text;
}

}  // namespace pyxis
