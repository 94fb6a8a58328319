// Every IC has exactly one converter row, and every converter row is one IC's; a name without a code has none.
#include <algorithm>
#include <string_view>

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

// The record names the template that the row's routine takes.
template <typename... Tables>
constexpr bool TemplatesAgree(const Tables&... tables) {
  const auto agrees = [](const auto& table) {
    return std::ranges::all_of(table, [](const auto& row) {
      return std::ranges::any_of(kIcs, [&row](const Ic* ic) {
        return ic->ChipCode == row.ChipCode && std::string_view(ic->templateName) == row.name;
      });
    });
  };
  return (agrees(tables) && ...);
}

static_assert(TemplatesAgree(kOtp4Table, kEpm4Table, kHex14OtpTable, kHex14MtpTable, kVelmarFlashTable,
                             kVelmarEepromTable, kVelmarBlockTable, kUsbHexTable, kUsbObjTable, kUsbEepromTable),
              "a record and its converter row name two templates");
static_assert(EveryIcConverts(), "an IC without a converter row, or a converter row without an IC");

}  // namespace

}  // namespace pyxis
