// Every IC has exactly one converter row.
#include "catalogue/ics.h"
#include "intake/converters/dispatch.h"

namespace pyxis {

static_assert(std::ranges::all_of(kIcs, [](const Ic& ic) { return FindConverter(ic.ChipCode) != nullptr; }),
              "an IC has no converter row");

}  // namespace pyxis
