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

constexpr bool FileTypesAre(const char* extension, const auto& table) {
  return RowsAgree(table, [extension](const Ic& ic, const auto&) {
    return ic.series == Series::None || SameText(ic.FileExtension, extension);
  });
}

// The serial's end counts bytes of a flash memory, and words of the others.
constexpr bool SerialsEndAt(const SerialPlace& place, std::uint32_t limit) {
  return place.endLimit == limit && place.endMarkCounts == SnUnit::Bytes && place.fixedAddress == kAnyAddress;
}
constexpr bool IsRead(const Ic& ic, std::size_t bytes) {
  return ic.series == Series::None || (ic.ReadSizeBytes.km48 == bytes && ic.ReadSizeBytes.km49 == bytes);
}

// Behind the image come the configuration word, the ID and its padding.
constexpr std::uint32_t kFlashTail = 18;
constexpr bool Agree(const Ic& ic, const VelmarFlashRow& row) {
  return SerialsEndAt(ic.serial, row.imageBytes) && IsRead(ic, row.imageBytes + kFlashTail);
}
constexpr bool Agree(const Ic& ic, const Hex14OtpRow& row) {
  return SerialsEndAt(ic.serial, row.memory.serialEnd) && IsRead(ic, 2 * (row.memory.config + std::size_t{4}));
}
// How much of the ID is read differs.
constexpr bool Agree(const Ic& ic, const Hex14MtpRow& row) {
  return SerialsEndAt(ic.serial, row.memory.length + std::uint32_t{row.memory.copied}) &&
         (ic.series == Series::None || ic.ReadSizeBytes.km48 > 2U * row.memory.config);
}
constexpr bool Agree(const Ic& ic, const UsbHexRow& row) {
  return ic.protection == (ic.options == OptionChoice::AllBits ? kFullPanelProtection : kHighByteProtection) &&
         SerialsEndAt(ic.serial, row.imageBytes) && IsRead(ic, row.imageBytes + std::size_t{1});
}
constexpr bool Agree(const Ic& ic, const UsbEepromRow& row) {
  return ic.protection == (row.plainBytes ? kHighByteProtection : kMultiTimeProtection) &&
         SerialsEndAt(ic.serial, row.words) && (ic.series == Series::None || ic.ReadSizeBytes.km48 > 2 * row.words);
}
constexpr bool HasProtectionOf(const Epm4Row& row, const Protection& place) {
  if (row.protect == ProtectByte::Plain) return place == kEpmProtectionByClear;
  return place == kEpmProtection || place == kEpmProtectionOfFileAlone;
}
// An IC that isn't in the catalogue is given no serials, whatever its converter takes.
constexpr bool Agree(const Ic& ic, const Epm4Row& row) {
  return HasProtectionOf(row, ic.protection) &&
         (ic.series == Series::None || row.serial == (ic.serial.endLimit != 0)) &&
         IsRead(ic, row.imageBytes + row.tail.summed + 2 * row.options.summed);
}
constexpr bool Agree(const Ic& ic, const Otp4Row& row) {
  const CompareKind& cut = ic.comparison;
  const std::size_t read = row.unit == Otp4Unit::Word ? 2 * row.words : row.configOffset - kOtp4Header;
  return ic.protection == (row.unit == Otp4Unit::Byte ? kHighByteProtection : kLowByteProtection) &&
         cut.header == kOtp4Header && cut.configAt == row.configOffset && cut.imageBytes == 2 * row.words &&
         IsRead(ic, read);
}

constexpr bool RecordsAgree(const auto& table) {
  return RowsAgree(table, [](const Ic& ic, const auto& row) { return Agree(ic, row); });
}

static_assert(ProtectionsAre(kFlashProtection, kVelmarFlashTable) &&
                  ProtectionsAre(kOneTimeProtection, kHex14OtpTable) &&
                  ProtectionsAre(kMultiTimeProtection, kHex14MtpTable) &&
                  ProtectionsAre(kFlashProtection, kVelmarBlockTable) &&
                  ProtectionsAre(kFlashProtection, kVelmarEepromTable) &&
                  ProtectionsAre(kOneTimeProtection, kUsbObjTable),
              "an IC with the protection of another family");
static_assert(FileTypesAre(kVelmar, kVelmarFlashTable) && FileTypesAre(kVelmar, kVelmarBlockTable) &&
                  FileTypesAre(kVelmar, kVelmarEepromTable) && FileTypesAre(kEpm, kEpm4Table) &&
                  FileTypesAre(kOtp, kOtp4Table) && FileTypesAre(kObj, kUsbObjTable) &&
                  FileTypesAre(kHex, kHex14OtpTable) && FileTypesAre(kHex, kHex14MtpTable) &&
                  FileTypesAre(kHex, kUsbHexTable),
              "an IC with the program files of another family");
static_assert(RecordsAgree(kVelmarFlashTable), "a flash IC's serial limit or read size isn't that of its image");
static_assert(RecordsAgree(kHex14OtpTable) && RecordsAgree(kHex14MtpTable),
              "a 14-bit IC's serial limit or read size isn't that of its memory");
static_assert(RecordsAgree(kUsbHexTable) && RecordsAgree(kUsbEepromTable),
              "a USB IC's protection, serial limit or read size isn't that of its image");
static_assert(RecordsAgree(kEpm4Table) && RecordsAgree(kOtp4Table),
              "a 4-bit IC's protection, serial numbers, read size or comparison aren't those of its image");
static_assert(EveryIcConverts(), "an IC without a converter row, or a converter row without an IC");

}  // namespace

}  // namespace pyxis
