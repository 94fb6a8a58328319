#include "serial/sn_record.h"

namespace pyxis {

namespace {
SnRecord theSnRecord;
}

SnRecord& TheSnRecord() { return theSnRecord; }

void ResetSnRecord() { theSnRecord = SnRecord{}; }

std::string HexPadded(const std::string& text) {
  const std::size_t length = theSnRecord.SnLength;
  if (length < 1 || length > 16 || text.size() >= 2 * length) return text;
  return std::string(2 * length - text.size(), '0') + text;
}

}  // namespace pyxis
