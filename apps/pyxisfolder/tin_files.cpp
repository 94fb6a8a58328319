#include <algorithm>

#include "catalogue/chip_catalogue.h"
#include "folder.h"
#include "intake/converters/dispatch.h"
#include "option_lists.h"
#include "options/smart_option.h"
#include "platform/text.h"

namespace pyxis::folder {

namespace {

constexpr unsigned kConfigArea = 0x2000;  // address of the configuration words, above every program memory

// All rows of an IC: one a package.
std::vector<ChipEntry> RowsOf(const std::string& chip) {
  std::vector<ChipEntry> rows;
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list))
      if (chip == row.ChipName) rows.push_back(row);
  return rows;
}

OptionFamily FamilyOf(const Hex14OtpRow& row) {
  return row.memory.dual.skip != 0 ? OptionFamily::OneTimeDual : OptionFamily::OneTime;
}
OptionFamily FamilyOf(const Hex14MtpRow&) { return OptionFamily::MultiTime; }
OptionFamily FamilyOf(const VelmarFlashRow&) { return OptionFamily::Flash; }
OptionFamily FamilyOf(const VelmarEepromRow&) { return OptionFamily::Flash; }
OptionFamily FamilyOf(const VelmarBlockRow&) { return OptionFamily::Flash; }
OptionFamily FamilyOf(const UsbHexRow&) { return OptionFamily::Usb; }
OptionFamily FamilyOf(const UsbObjRow&) { return OptionFamily::Usb; }
OptionFamily FamilyOf(const UsbEepromRow&) { return OptionFamily::Usb; }
OptionFamily FamilyOf(const Otp4Row&) { return OptionFamily::FourBit; }
OptionFamily FamilyOf(const Epm4Row&) { return OptionFamily::FourBit; }

// Where the packages of an IC differ in a field, its one file has the alternatives of the widest.
Masks WidestMasks(const std::vector<ChipEntry>& rows) {
  Masks widest{};
  for (const ChipEntry& row : rows)
    for (std::size_t i = 0; i < widest.size(); ++i) widest[i] |= row.OptionMasks[i];
  return widest;
}

const OptionList* ListOf(const std::vector<ChipEntry>& rows) {
  if (rows.empty() || !rows.front().HasSmartOption) return nullptr;
  const OptionFamily family =
      std::visit([](const auto* row) { return FamilyOf(*row); }, FindConverter(rows.front().ChipCode)->row);
  const Masks masks = WidestMasks(rows);
  const auto found = std::find_if(std::begin(kOptionLists), std::end(kOptionLists),
                                  [&](const OptionList& list) { return list.family == family && list.masks == masks; });
  return found == std::end(kOptionLists) ? nullptr : found;
}

// What a section holds, one line an option.
struct Sections {
  std::string menu, item, first, dipSwitch;
};

Sections SectionsOf(const OptionList& list) {
  Sections sections;
  for (std::size_t i = 0; i < list.options.size() && !list.options[i].caption.empty(); ++i) {
    const Option& option = list.options[i];
    std::string items(option.alternatives);
    std::replace(items.begin(), items.end(), kAlternativeEnd, kItemSeparator);
    sections.menu += std::string(option.caption) + "\r\n";
    sections.item += items + "\r\n";
    if (i != 0) sections.first += option.usual;  // the line begins with the second row
    sections.dipSwitch += option.setBy == SetBy::Program ? "SW\r\n" : Printf("%X %X\r\n", kConfigArea, list.masks[i]);
  }
  return sections;
}

}  // namespace

Bytes MakeTin(const std::string& chipName) {
  const OptionList* list = ListOf(RowsOf(chipName));
  if (list == nullptr) return {};
  const Sections sections = SectionsOf(*list);
  const std::string text =
      "; " + chipName + ": the options in its configuration word\r\n[MENU]\r\n" + sections.menu + "\r\n[ITEM]\r\n" +
      sections.item + "\r\n[FIRST]\r\n" + sections.first +
      "\r\n\r\n; address and bits of an option that goes with the circuit; SW: set by the program\r\n"
      "[DIPSWITCH]\r\n" +
      sections.dipSwitch;
  return {text.begin(), text.end()};
}

}  // namespace pyxis::folder
