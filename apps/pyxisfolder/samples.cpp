#include <algorithm>
#include <cstring>

#include "folder.h"
#include "intake/converters/hex14_mtp_table.h"
#include "intake/converters/hex14_otp_table.h"
#include "intake/converters/velmar_flash_table.h"
#include "intake/package_files.h"
#include "intel_hex_writer.h"
#include "platform/byte_order.h"

namespace pyxis::folder {

namespace {

constexpr std::uint16_t kWordMask = 0x3FFF;

// 14-bit words, low byte first; the last quarter of the code stays blank.
Bytes Words14(const std::string& seed, std::size_t count, std::size_t length) {
  Filler filler(seed);
  Bytes image(2 * count);
  for (std::size_t i = 0; i < count; ++i)
    StoreLe16(&image[2 * i], i < length - length / 4 ? filler.Next() & kWordMask : kWordMask);
  return image;
}

Bytes Random(const std::string& seed, std::size_t count) {
  Filler filler(seed);
  Bytes image(count);
  for (std::uint8_t& byte : image) byte = static_cast<std::uint8_t>(filler.Next());
  return image;
}

Bytes OtpImage(const Hex14OtpRow& row, bool dual) {
  const Hex14OtpMemory& memory = row.memory;
  Bytes image = Words14(row.name, memory.idWord + 1U, memory.length);
  const unsigned config = Filler(std::string(row.name) + " config").Next() & kWordMask;
  StoreLe16(&image[2U * memory.config], dual ? config & ~unsigned{kNotDualBit} : config | kNotDualBit);
  image[2U * memory.idWord] = row.idLow;
  image[2U * memory.idWord + 1] = row.idHigh;
  return image;
}

Bytes MtpImage(const Hex14MtpRow& row) {
  const Hex14MtpMemory& memory = row.memory;
  const std::size_t words = std::max<std::size_t>(memory.idOffset / 2 + 2, memory.config + 1U);
  Bytes image = Words14(row.name, words, memory.length);
  StoreLe16(&image[2U * memory.config], Filler(std::string(row.name) + " config").Next() & kWordMask);
  for (std::size_t i = 0; i < row.id.size(); ++i)
    if (row.id[i].mask != 0) image[memory.idOffset + i] = row.id[i].value;
  return image;
}

Bytes VelmarImage(const VelmarFlashRow& row) {
  const std::size_t id = row.imageBytes + 2U;  // behind the configuration word
  Bytes image = Random(row.name, id + 16);
  image[id] = 0x27;
  image[id + 1] = row.idSecond;
  image[id + 2] = static_cast<std::uint8_t>(row.idThirdHigh << 4);
  image[id + 7] = 0x05;  // a small protected tail
  return image;
}

// Plain binary files: an image, and single bytes in it that a check looks at.
struct BinaryRow {
  const char* name;
  const char* extension;
  std::size_t length;
  std::size_t keyOffset;  // 0: none
  std::uint8_t key;
};
constexpr BinaryRow kBinaries[] = {
    {"QV4105", ".otp", 8224, 0, 0},           {"QV4103", ".otp", 16416, 0, 0},
    {"QV4106", ".otp", 16416, 0, 0},          {"QV4101", ".epm", 34816, 0, 0},
    {"QV4107", ".epm", 8192 + 28, 0, 0},      {"QV4201", ".epm", 16384 + 30, 0, 0},
    {"QV4203", ".epm", 32768 + 30, 0, 0},     {"QV4204", ".epm", 32768 + 30, 0, 0},
    {"QV4205", ".epm", 65536 + 30, 0, 0},     {"QV4206", ".epm", 65536 + 64, 65598, 0},
    {"QV4207", ".epm", 65536 + 64, 65598, 1}, {"QVL01", ".obj", 32 + 16384, 0, 0},
    {"QVL02", ".obj", 32 + 16384, 0, 0},      {"QVL03", ".obj", 32 + 16382, 0, 0},
};

// USB program files in Intel HEX: bytes, or words with an ID.
struct UsbRow {
  const char* name;
  std::size_t length;    // bytes
  std::size_t idOffset;  // 0: none
  std::uint8_t idLow, idHigh;
};
constexpr UsbRow kUsb[] = {
    {"QVL04", 32768, 0, 0, 0},        {"QVL05", 16384, 0, 0, 0},        {"QVL06", 24576, 0, 0, 0},
    {"QVL13", 16384, 0, 0, 0},        {"QVL07", 24608, 0, 0, 0},        {"QVL09", 16416, 16404, 0x45, 3},
    {"QVL12", 16416, 16404, 0x55, 2}, {"QVL10", 12320, 12308, 0x46, 3}, {"QVL11", 8224, 8212, 0x50, 3},
};

Bytes UsbImage(const UsbRow& row) {
  if (row.idOffset == 0) return Random(row.name, row.length);
  Bytes image = Words14(row.name, row.length / 2, row.length / 2);
  image[row.idOffset] = row.idLow;
  image[row.idOffset + 1] = row.idHigh;
  return image;
}

}  // namespace

std::vector<Sample> MakeSamples(const std::string& chipName) {
  for (const auto& row : kHex14OtpTable) {
    if (chipName != row.name) continue;
    std::vector<Sample> samples{{chipName + ".hex", ToIntelHex(OtpImage(row, false))}};
    if (row.memory.dual.skip != 0) samples.push_back({chipName + "_dual.hex", ToIntelHex(OtpImage(row, true))});
    return samples;
  }
  for (const auto& row : kHex14MtpTable)
    if (chipName == row.name) return {{chipName + ".hex", ToIntelHex(MtpImage(row))}};
  for (const auto& row : kVelmarFlashTable)
    if (chipName == row.name) return {{chipName + ".velmar", ToIntelHex(VelmarImage(row))}};
  for (const BinaryRow& row : kBinaries) {
    if (chipName != row.name) continue;
    Bytes image = Random(row.name, row.length);
    if (row.keyOffset != 0) image[row.keyOffset] = row.key;
    return {{chipName + row.extension, image}};
  }
  for (const UsbRow& row : kUsb) {
    if (chipName != row.name) continue;
    std::vector<Sample> samples{{chipName + ".hex", ToIntelHex(UsbImage(row))}};
    if (chipName == "QVL11") samples.push_back({chipName + "_eeprom.bin", Random("eeprom", 200)});
    return samples;
  }
  return {};
}

}  // namespace pyxis::folder
