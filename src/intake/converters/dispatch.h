// All converter rows, by ChipCode. A family is one routine and one table of rows (the *_table.h). A row goes by its
// IC's name; the code is that of the IC's record.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <variant>

#include "catalogue/ics.h"
#include "intake/convert.h"
#include "intake/converters/epm4_table.h"
#include "intake/converters/hex14_mtp_table.h"
#include "intake/converters/hex14_otp_table.h"
#include "intake/converters/otp4_table.h"
#include "intake/converters/usb_eeprom_table.h"
#include "intake/converters/usb_hex_table.h"
#include "intake/converters/usb_obj_table.h"
#include "intake/converters/velmar_block_table.h"
#include "intake/converters/velmar_eeprom_table.h"
#include "intake/converters/velmar_flash_table.h"

namespace pyxis {

ConversionResults Convert(const Otp4Row& row, const ConvertRequest& request);
ConversionResults Convert(const Epm4Row& row, const ConvertRequest& request);
ConversionResults Convert(const Hex14OtpRow& row, const ConvertRequest& request);
ConversionResults Convert(const Hex14MtpRow& row, const ConvertRequest& request);
ConversionResults Convert(const VelmarFlashRow& row, const ConvertRequest& request);
ConversionResults Convert(const VelmarEepromRow& row, const ConvertRequest& request);
ConversionResults Convert(const VelmarBlockRow& row, const ConvertRequest& request);
ConversionResults Convert(const UsbHexRow& row, const ConvertRequest& request);
ConversionResults Convert(const UsbObjRow& row, const ConvertRequest& request);
ConversionResults Convert(const UsbEepromRow& row, const ConvertRequest& request);

// A row of one of the ten families.
using ConverterFamily = std::variant<const Otp4Row*, const Epm4Row*, const Hex14OtpRow*, const Hex14MtpRow*,
                                     const VelmarFlashRow*, const VelmarEepromRow*, const VelmarBlockRow*,
                                     const UsbHexRow*, const UsbObjRow*, const UsbEepromRow*>;

struct ConverterEntry {
  std::uint32_t ChipCode = 0;
  ConverterFamily row;
};

// kNoCode for a name that no IC has.
constexpr std::uint32_t CodeOfName(const char* chipName) {
  for (const Ic* ic : kIcs)
    if (SameText(ic->ChipName, chipName)) return ic->ChipCode;
  return kNoCode;
}

// The entries of all tables, by ChipCode.
template <typename... Tables>
constexpr auto GatherConverters(const Tables&... tables) {
  std::array<ConverterEntry, (std::tuple_size_v<Tables> + ...)> entries;
  std::size_t count = 0;
  const auto take = [&](const auto& table) {
    for (const auto& row : table) entries[count++] = {CodeOfName(row.ChipName), &row};
  };
  (take(tables), ...);
  std::ranges::sort(entries, {}, &ConverterEntry::ChipCode);
  return entries;
}

inline constexpr auto kConverters =
    GatherConverters(kOtp4Table, kEpm4Table, kHex14OtpTable, kHex14MtpTable, kVelmarFlashTable, kVelmarEepromTable,
                     kVelmarBlockTable, kUsbHexTable, kUsbObjTable, kUsbEepromTable);
static_assert(std::ranges::adjacent_find(kConverters, {}, &ConverterEntry::ChipCode) == kConverters.end(),
              "an IC has two converter rows");
static_assert(kConverters.front().ChipCode != kNoCode, "a converter row of a name that no IC with a ChipCode has");

// Null for a code without a converter.
constexpr const ConverterEntry* FindConverter(std::uint32_t chipCode) {
  const auto found = std::ranges::lower_bound(kConverters, chipCode, {}, &ConverterEntry::ChipCode);
  return found != kConverters.end() && found->ChipCode == chipCode ? &*found : nullptr;
}

}  // namespace pyxis
