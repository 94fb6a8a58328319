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

// What the record and the converter row of a family both know of the memory. `agrees` gets the two.
template <typename Table>
constexpr bool MemoriesAgree(const Table& table, bool (*agrees)(const Ic&, const typename Table::value_type&)) {
  for (const Ic* ic : kIcs)
    for (const auto& row : table)
      if (ic->ChipCode == row.ChipCode && !agrees(*ic, row)) return false;
  return true;
}

constexpr bool Lies(const Protection& place, int wordBit, ProtectedBy by) {
  return place.inConfigWord && place.byte == Field::ConfigWord.offset && place.bit + 8 == wordBit &&
         place.protectedBy == by;
}

// Behind the image come the configuration word, the ID and its padding.
constexpr std::uint32_t kFlashTail = 18;

static_assert(MemoriesAgree(kVelmarFlashTable,
                            [](const Ic& ic, const VelmarFlashRow& row) {
                              return Lies(ic.protection, 15, ProtectedBy::SetBit) &&
                                     (ic.serial.endLimit == row.imageBytes || ic.serial.endLimit == 0) &&
                                     (ic.series == Series::None ||
                                      ic.ReadSizeBytes.km48 == row.imageBytes + kFlashTail);
                            }),
              "a flash IC's protection, serial limit or read size isn't that of its image");
static_assert(MemoriesAgree(kHex14OtpTable,
                            [](const Ic& ic, const Hex14OtpRow&) {
                              return Lies(ic.protection, 13, ProtectedBy::SetBit);
                            }),
              "a one-time programmable IC with the protection of another family");
static_assert(MemoriesAgree(kHex14MtpTable,
                            [](const Ic& ic, const Hex14MtpRow&) {
                              return Lies(ic.protection, 13, ProtectedBy::ClearedBit);
                            }),
              "a multi-time programmable IC with the protection of another family");
static_assert(TemplatesAgree(kOtp4Table, kEpm4Table, kHex14OtpTable, kHex14MtpTable, kVelmarFlashTable,
                             kVelmarEepromTable, kVelmarBlockTable, kUsbHexTable, kUsbObjTable, kUsbEepromTable),
              "a record and its converter row name two templates");
static_assert(EveryIcConverts(), "an IC without a converter row, or a converter row without an IC");

}  // namespace

}  // namespace pyxis
