#include <algorithm>

#include "catalogue/chip_catalogue.h"
#include "folder.h"
#include "intake/converters/hex14_mtp_table.h"
#include "intake/converters/hex14_otp_table.h"
#include "option_lists.h"
#include "options/smart_option.h"
#include "platform/text.h"

namespace pyxis::folder {

namespace {

constexpr unsigned kConfigArea = 0x2000;  // address of the configuration words, above every program memory

template <typename Table>
auto RowOf(const Table& table, const std::string& chip) {
  return std::find_if(table.begin(), table.end(), [&](const auto& row) { return chip == row.name; });
}

// All rows of an IC: one a package.
std::vector<ChipEntry> RowsOf(const std::string& chip) {
  std::vector<ChipEntry> rows;
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list))
      if (chip == row.ChipName) rows.push_back(row);
  return rows;
}

OptionFamily FamilyOf(const ChipEntry& chip) {
  const auto oneTime = RowOf(kHex14OtpTable, chip.ChipName);
  if (oneTime != kHex14OtpTable.end())
    return oneTime->memory.dual.skip != 0 ? OptionFamily::OneTimeDual : OptionFamily::OneTime;
  if (RowOf(kHex14MtpTable, chip.ChipName) != kHex14MtpTable.end()) return OptionFamily::MultiTime;
  if (std::string_view(chip.FileExtension) == ".velmar") return OptionFamily::Flash;
  return chip.OptionMasks == M0 ? OptionFamily::FourBit : OptionFamily::Usb;
}

// Where the packages of an IC differ in a field, its one file has the alternatives of the widest.
Masks WidestMasks(const std::vector<ChipEntry>& rows) {
  Masks widest{};
  for (const ChipEntry& row : rows)
    for (std::size_t i = 0; i < widest.size(); ++i) widest[i] |= row.OptionMasks[i];
  return widest;
}

const OptionList* ListOf(const std::vector<ChipEntry>& rows) {
  if (rows.empty() || !rows.front().HasSmartOption) return nullptr;
  const OptionFamily family = FamilyOf(rows.front());
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
