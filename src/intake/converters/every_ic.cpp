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

// What a record and its converter row both know. `agrees` gets the two.
template <typename Table>
constexpr bool RowsAgree(const Table& table, const auto& agrees) {
  for (const Ic* ic : kIcs)
    for (const auto& row : table)
      if (SameText(ic->ChipName, row.ChipName) && !agrees(*ic, row)) return false;
  return true;
}

constexpr bool ProtectionsAre(const Protection& place, const auto& table) {
  return RowsAgree(table, [&place](const Ic& ic, const auto&) { return ic.protection == place; });
}

// Behind the image come the configuration word, the ID and its padding.
constexpr std::uint32_t kFlashTail = 18;
constexpr bool FlashMemoriesAgree() {
  return RowsAgree(kVelmarFlashTable, [](const Ic& ic, const VelmarFlashRow& row) {
    return (ic.serial.endLimit == row.imageBytes || ic.serial.endLimit == 0) &&
           (ic.series == Series::None || ic.ReadSizeBytes.km48 == row.imageBytes + kFlashTail);
  });
}

static_assert(ProtectionsAre(kFlashProtection, kVelmarFlashTable) &&
                  ProtectionsAre(kOneTimeProtection, kHex14OtpTable) &&
                  ProtectionsAre(kMultiTimeProtection, kHex14MtpTable),
              "an IC with the protection of another family");
static_assert(FlashMemoriesAgree(), "a flash IC's serial limit or read size isn't that of its image");
static_assert(EveryIcConverts(), "an IC without a converter row, or a converter row without an IC");

}  // namespace

}  // namespace pyxis
