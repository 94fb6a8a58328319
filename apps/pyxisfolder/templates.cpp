#include <algorithm>
#include <set>

#include "catalogue/chip_catalogue.h"
#include "folder.h"
#include "intake/converters/dispatch.h"
#include "intake/package_files.h"
#include "platform/byte_order.h"
#include "shell/ground/app_state.h"

namespace pyxis::folder {

namespace {

// What the writer and the file comparison have to know of a family. The unit and the order are those in which the
// program file and DataPackage can be laid side by side.
struct Kind {
  std::uint8_t lengthUnit, readBackOrder, configKind, chipClass;
  std::uint8_t serialUnit = 0;  // 1: serials count words, low byte first
  std::size_t imageLength = 0;  // in the unit, where no converter writes it
};

constexpr Kind kVelmarKind{.lengthUnit = kCountsBytes,
                           .readBackOrder = kOrderOfData,
                           .configKind = kTellsChipInfo,
                           .chipClass = kChipClassFlash};

Kind KindOf(const Hex14OtpRow&) {
  return {.lengthUnit = kCountsWords,
          .readBackOrder = kOrderExchanged,
          .configKind = kTellsChipInfo,
          .chipClass = kChipClassOneTime};
}
Kind KindOf(const Hex14MtpRow&) {
  return {.lengthUnit = kCountsWords,
          .readBackOrder = kOrderExchanged,
          .configKind = kTellsChipInfo,
          .chipClass = kChipClassFlash};
}
Kind KindOf(const VelmarFlashRow&) { return kVelmarKind; }
Kind KindOf(const VelmarEepromRow&) { return kVelmarKind; }
Kind KindOf(const VelmarBlockRow&) { return kVelmarKind; }
Kind KindOf(const UsbHexRow&) {
  return {.lengthUnit = kCountsBytesOfOne,
          .readBackOrder = kOrderOfData,
          .configKind = kTellsChipInfo,
          .chipClass = kChipClassOneTime};
}
Kind KindOf(const UsbObjRow&) {
  return {.lengthUnit = kCountsWords,
          .readBackOrder = kOrderExchanged,
          .configKind = kTellsChipInfo,
          .chipClass = kChipClassOneTime};
}
Kind KindOf(const UsbEepromRow& row) {
  if (!row.plainBytes)
    return {.lengthUnit = kCountsWords,
            .readBackOrder = kOrderExchanged,
            .configKind = kTellsChipInfo,
            .chipClass = kChipClassFlash};
  return {.lengthUnit = kCountsBytesOfOne,
          .readBackOrder = kOrderOfData,
          .configKind = kTellsChipInfo,
          .chipClass = kChipClassFlash,
          .serialUnit = kSerialUnitLowFirst,
          .imageLength = 2U * row.words};
}
Kind KindOf(const Otp4Row& row) {
  if (row.unit == Otp4Unit::Byte)
    return {.lengthUnit = kCountsBytesOfOne,
            .readBackOrder = kOrderOfData,
            .configKind = kTellsNoChipInfo,
            .chipClass = kChipClassOneTime,
            .imageLength = row.configOffset + 1 - kOtp4Header};
  return {.lengthUnit = kCountsWords,
          .readBackOrder = kOrderExchanged,
          .configKind = kTellsNoChipInfo,
          .chipClass = kChipClassOneTime,
          .imageLength = row.words + 1};
}
Kind KindOf(const Epm4Row& row) {
  return {.lengthUnit = kCountsWords,
          .readBackOrder = kOrderOfData,
          .configKind = kTellsNoChipInfo,
          .chipClass = kChipClassOneTime,
          .imageLength = (row.imageBytes + row.tail.notSummed + row.tail.summed) / 2};
}

// An IC has a template of its own name, or one of another.
const Ic* IcOfTemplate(const std::string& name) {
  if (const Ic* ic = IcOfName(name)) return ic;
  const auto ics = AllIcs();
  const auto found = std::ranges::find_if(ics, [&name](const Ic* ic) { return name == ic->templateName; });
  return found == ics.end() ? nullptr : *found;
}

}  // namespace

std::set<std::string> TemplateNames() {
  std::set<std::string> names;
  for (const ConverterEntry& entry : kConverters) {
    const Ic& ic = *IcOfCode(entry.ChipCode);
    names.insert({ic.ChipName, ic.templateName});
  }
  return names;
}

Bytes MakeTemplate(const std::string& name) {
  const Ic* ic = IcOfTemplate(name);
  const ConverterEntry* entry = ic == nullptr ? nullptr : FindConverter(ic->ChipCode);
  if (entry == nullptr) return {};
  const Kind kind = std::visit([](const auto* row) { return KindOf(*row); }, entry->row);
  Bytes bytes(kInfoBlockSize, 0);
  const std::string_view chip = ic->ChipName;
  std::copy_n(chip.begin(), std::min(chip.size(), Field::ChipNameField.width), bytes.begin());
  StoreBe16(&bytes[Field::ImageLength.offset], static_cast<std::uint16_t>(kind.imageLength));
  bytes[Field::LengthUnit.offset] = kind.lengthUnit;
  bytes[Field::ReadBackOrder.offset] = kind.readBackOrder;
  bytes[Field::ConfigKind.offset] = kind.configKind;
  bytes[Field::SerialUnit.offset] = kind.serialUnit;
  bytes[Field::ChipClass.offset] = kind.chipClass;
  return bytes;
}

}  // namespace pyxis::folder
