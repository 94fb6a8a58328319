#include <algorithm>

#include "catalogue/chip_catalogue.h"
#include "catalogue/profiles.h"
#include "folder.h"
#include "intake/converters/dispatch.h"
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

// Of an IC by its converter row: an image that passes the converter's checks. A family whose ICs can't be selected has
// none.
Bytes ImageOf(const Ic&, const auto&) { return {}; }

Bytes ImageOf(const Ic& ic, const Hex14OtpRow& row) {
  const Hex14OtpMemory& memory = row.memory;
  Bytes image = Words14(ic.ChipName, memory.idWord + 1U, memory.length);
  const unsigned config = Filler(std::string(ic.ChipName) + " config").Next() & kWordMask;
  StoreLe16(&image[2U * memory.config], config | kNotDualBit);
  image[2U * memory.idWord] = row.idLow;
  image[2U * memory.idWord + 1] = row.idHigh;
  return image;
}

Bytes ImageOf(const Ic& ic, const Hex14MtpRow& row) {
  const Hex14MtpMemory& memory = row.memory;
  const std::size_t words = std::max<std::size_t>(memory.idOffset / 2 + 2, memory.config + 1U);
  Bytes image = Words14(ic.ChipName, words, memory.length);
  StoreLe16(&image[2U * memory.config], Filler(std::string(ic.ChipName) + " config").Next() & kWordMask);
  for (std::size_t i = 0; i < row.id.size(); ++i)
    if (row.id[i].mask != 0) image[memory.idOffset + i] = row.id[i].value;
  return image;
}

Bytes ImageOf(const Ic& ic, const VelmarFlashRow& row) {
  const std::size_t id = row.imageBytes + 2U;  // behind the configuration word
  Bytes image = Random(ic.ChipName, id + 16);
  image[id] = 0x27;
  image[id + 1] = row.idSecond;
  image[id + 2] = static_cast<std::uint8_t>(row.idThirdHigh << 4);
  image[id + 7] = 0x05;  // a small protected tail
  return image;
}

Bytes ImageOf(const Ic& ic, const Otp4Row& row) {
  return Random(ic.ChipName, row.configOffset + (row.unit == Otp4Unit::Byte ? 1 : 2));
}

Bytes ImageOf(const Ic& ic, const Epm4Row& row) {
  const std::size_t image = row.imageBytes + row.tail.notSummed + row.tail.summed;
  const std::size_t options = row.options.offset + 2 * (row.options.notSummed + row.options.summed);
  Bytes bytes = Random(ic.ChipName, std::max({image, options, row.key.offset + 2}));
  if (row.key.offset != 0) bytes[row.key.offset] = row.key.value;
  return bytes;
}

Bytes ImageOf(const Ic& ic, const UsbHexRow& row) { return Random(ic.ChipName, row.imageBytes); }

Bytes ImageOf(const Ic& ic, const UsbObjRow&) {
  return Random(ic.ChipName, ic.comparison.header + ic.ReadSizeBytes.km48);
}

Bytes ImageOf(const Ic& ic, const UsbEepromRow& row) {
  constexpr std::size_t kTail = 16;  // words behind the program: the configuration, the ID
  if (row.plainBytes) return Random(ic.ChipName, 2 * (row.words + kTail));
  Bytes image = Words14(ic.ChipName, row.words + kTail, row.words + kTail);
  image[row.id.offset] = row.id.low;
  image[row.id.offset + 1] = row.id.high;
  return image;
}

// What else an IC takes.
std::vector<Sample> MoreSamples(const Ic&, const Bytes&, const auto&) { return {}; }

std::vector<Sample> MoreSamples(const Ic& ic, const Bytes& image, const Hex14OtpRow& row) {
  if (row.memory.dual.skip == 0) return {};
  Bytes dual = image;
  std::uint8_t* config = &dual[2U * row.memory.config];
  StoreLe16(config, LoadLe16(config) & ~unsigned{kNotDualBit});
  return {{ic.ChipName + std::string("_dual.hex"), ToIntelHex(dual)}};
}

std::vector<Sample> MoreSamples(const Ic& ic, const Bytes&, const UsbEepromRow& row) {
  if (row.eepromName != std::string_view(kMadeEepromName)) return {};
  return {{ic.ChipName + std::string("_eeprom.bin"), Random("eeprom", 200)}};
}

}  // namespace

std::vector<Sample> MakeSamples(const std::string& chipName) {
  const Ic& ic = *IcOfName(chipName);
  const std::string_view type = ic.FileExtension;
  const std::string extension(type == kHexOrBin ? kHex : type);
  return std::visit(
      [&](const auto* row) {
        const Bytes image = ImageOf(ic, *row);
        const bool text = extension == kHex || extension == kVelmar;
        std::vector<Sample> samples{{chipName + extension, text ? ToIntelHex(image) : image}};
        for (Sample& more : MoreSamples(ic, image, *row)) samples.push_back(std::move(more));
        return samples;
      },
      FindConverter(ic.ChipCode)->row);
}

}  // namespace pyxis::folder
