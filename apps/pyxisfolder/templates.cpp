#include <algorithm>
#include <cstring>

#include "folder.h"
#include "intake/converters/hex14_mtp_table.h"
#include "intake/converters/hex14_otp_table.h"
#include "intake/converters/velmar_flash_table.h"
#include "intake/package_files.h"
#include "platform/byte_order.h"
#include "shell/ground/app_state.h"

namespace pyxis::folder {

namespace {

// What the writer and the file comparison have to know of a kind of IC. The unit and the order are those in which the
// program file and DataPackage can be laid side by side.
struct Kind {
  std::uint8_t lengthUnit;      // 1: ImageLength counts words; 0: bytes, one configuration byte; 2: bytes
  std::uint8_t readBackOrder;   // 2: words as in DataPackage, else their bytes exchanged
  std::uint8_t configKind;      // 0: Read Chip Info works
  std::uint8_t chipClass;       // 17: flash
  std::uint8_t serialUnit = 0;  // 1: serials count words, low byte first
};
constexpr std::uint8_t kOtp = 1;
constexpr std::uint8_t kFlash = kChipClassFlash;

constexpr Kind kHex14OtpKind{1, 1, 0, kOtp};
constexpr Kind kHex14MtpKind{1, 1, 0, kFlash};
constexpr Kind kVelmarKind{2, 2, 0, kFlash};
constexpr Kind kUsbHexKind{0, 2, 0, kOtp};
constexpr Kind kUsbObjKind{1, 1, 0, kOtp};
constexpr Kind kUsbEepromKind{1, 1, 0, kFlash};
constexpr Kind kUsbPlainKind{0, 2, 0, kFlash, kSerialUnitLowFirst};
constexpr Kind kOtp4ByteKind{0, 2, 1, kOtp};
constexpr Kind kOtp4WordKind{1, 1, 1, kOtp};
constexpr Kind kEpm4Kind{1, 2, 1, kOtp};

struct TemplateRow {
  const char* name;
  Kind kind;
  std::uint16_t imageLength;  // in the kind's unit, where no converter writes it
};

// The ICs outside the three large families.
constexpr TemplateRow kOthers[] = {
    {"QV8401", kVelmarKind, 0},      {"QV8123", kVelmarKind, 0},      {"QVL04", kUsbHexKind, 0},
    {"QVL05", kUsbHexKind, 0},       {"QVL06", kUsbHexKind, 0},       {"QVL13", kUsbHexKind, 0},
    {"QVL01", kUsbObjKind, 0},       {"QVL02", kUsbObjKind, 0},       {"QVL03", kUsbObjKind, 0},
    {"QVL08", kUsbObjKind, 0},       {"QVX02", kUsbObjKind, 0},       {"QV8369", kUsbObjKind, 0},
    {"QVL09", kUsbEepromKind, 0},    {"QVL10", kUsbEepromKind, 0},    {"QVL11", kUsbEepromKind, 0},
    {"QVL12", kUsbEepromKind, 0},    {"QVX03", kUsbEepromKind, 0},    {"QVL07", kUsbPlainKind, 24576},
    {"QV4105", kOtp4ByteKind, 8192}, {"QV4103", kOtp4WordKind, 6513}, {"QV4106", kOtp4WordKind, 6513},
    {"QV4301", kEpm4Kind, 24576},    {"QV4205", kEpm4Kind, 24576},    {"QV4206", kEpm4Kind, 32768},
    {"QV4207", kEpm4Kind, 32768},    {"QV4204", kEpm4Kind, 16384},    {"QV4202", kEpm4Kind, 16384},
    {"QV4203", kEpm4Kind, 16384},    {"QV4201", kEpm4Kind, 8192},     {"QV4107", kEpm4Kind, 4096},
    {"QV4104", kEpm4Kind, 4096},     {"QV4101", kEpm4Kind, 17408},
};

// Templates whose chip goes by another name than the file.
struct Alias {
  const char* name;
  const char* chip;
};
constexpr Alias kAliases[] = {{"QV4202", "QV4203"}};

std::vector<TemplateRow> AllRows() {
  std::vector<TemplateRow> rows;
  for (const auto& row : kHex14OtpTable) rows.push_back({row.name, kHex14OtpKind, 0});
  for (const auto& row : kHex14MtpTable) rows.push_back({row.name, kHex14MtpKind, 0});
  for (const auto& row : kVelmarFlashTable) rows.push_back({row.name, kVelmarKind, 0});
  rows.insert(rows.end(), std::begin(kOthers), std::end(kOthers));
  return rows;
}

std::string ChipOf(const std::string& templateName) {
  for (const Alias& alias : kAliases)
    if (templateName == alias.name) return alias.chip;
  return templateName;
}

}  // namespace

std::vector<std::string> TemplateNames() {
  std::vector<std::string> names;
  for (const TemplateRow& row : AllRows()) names.emplace_back(row.name);
  return names;
}

Bytes MakeTemplate(const std::string& name) {
  const std::vector<TemplateRow> rows = AllRows();
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const TemplateRow& r) { return name == r.name; });
  if (row == rows.end()) return {};
  Bytes bytes(kInfoBlockSize, 0);
  const std::string chip = ChipOf(name);
  std::copy_n(chip.begin(), std::min(chip.size(), Field::ChipNameField.width), bytes.begin());
  StoreBe16(&bytes[Field::ImageLength.offset], row->imageLength);
  bytes[Field::LengthUnit.offset] = row->kind.lengthUnit;
  bytes[Field::ReadBackOrder.offset] = row->kind.readBackOrder;
  bytes[Field::ConfigKind.offset] = row->kind.configKind;
  bytes[Field::SerialUnit.offset] = row->kind.serialUnit;
  bytes[Field::ChipClass.offset] = row->kind.chipClass;
  return bytes;
}

}  // namespace pyxis::folder
