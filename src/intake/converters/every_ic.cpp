// Every IC has exactly one converter row, and every converter row is one IC's; a name without a code has none.
#include <algorithm>

#include "catalogue/ics.h"
#include "intake/converters/dispatch.h"

namespace pyxis {

namespace {

constexpr bool EveryIcConverts() {
  std::size_t converted = 0;
  for (const Ic* ic : kIcs) {
    if (ic->ChipCode == kNoCode) continue;
    // Not FindConverter: under the sanitizers the address of a row is no constant.
    if (!std::ranges::binary_search(kConverters, ic->ChipCode, {}, &ConverterEntry::ChipCode)) return false;
    ++converted;
  }
  return converted == kConverters.size();
}

static_assert(EveryIcConverts(), "an IC without a converter row, or a converter row without an IC");

}  // namespace

}  // namespace pyxis
