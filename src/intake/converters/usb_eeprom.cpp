#include <string>

#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"
#include "platform/text.h"

namespace pyxis {

namespace {

constexpr std::size_t kEepromImageLength = 525;
constexpr std::size_t kEepromNameField = 13;
constexpr std::uint32_t kEepromFirstWord = 3840;
constexpr std::uint8_t kEepromFlag = 16;
constexpr std::uint16_t kSummedConfigSet = 0x1EFF;
constexpr std::uint16_t kProgramParameter = 0xC008;

// The text of the name field, up to its first zero.
std::string EepromNameOf(const Image& image) {
  std::string name;
  for (std::size_t i = 0; i < kEepromNameField && image.Byte(i) != 0; ++i)
    name.push_back(static_cast<char>(image.Byte(i)));
  return name;
}

bool IdMatches(const UsbEepromId& id, const Image& image) {
  return id.offset == kNoId.offset || (image.Byte(id.offset) == id.low && (image.Byte(id.offset + 1) & 3) == id.high);
}

ConverterCode ReadHex(const UsbEepromRow& row, ConversionFrame& frame) {
  if (const auto code = frame.ReadHexImage(row.mode, row.forcedLength); code != kConverted) return code;
  return IdMatches(row.id, frame.image) ? kConverted : frame.TellIdError();
}

ConverterCode ReadEeprom(const UsbEepromRow& row, ConversionFrame& frame) {
  if (const auto code = frame.ReadEepromImage(kMadeEepromName); code != kConverted) return code;
  const bool ours =
      EqualsNoCase(EepromNameOf(frame.image), row.eepromName) && frame.image.Length() == kEepromImageLength;
  return ours ? kConverted : frame.TellOpenError(kReaderFailed, frame.path);
}

// The program words, and the configuration word behind them where the image holds it.
std::uint32_t CopyProgram(const UsbEepromRow& row, ConversionFrame& frame) {
  for (std::uint32_t i = 1; i <= row.words; ++i) {
    const std::size_t at = 2 * (std::size_t{i} - 1);
    const std::uint16_t word = row.plainBytes ? frame.image.Be16(at) : frame.image.Le16(at);
    frame.WriteBe16(word);
    frame.Sum(word);
    if (!row.plainBytes) frame.KeepPartialChecksum(i);
  }
  if (row.plainBytes) return *frame.request.OptionValue;
  const std::uint16_t config = frame.image.Word(row.words);
  frame.state.SystemConfigWord = config;
  frame.Sum((config | kSummedConfigSet) & kSummedConfigBits);
  return config;
}

void CopyEeprom(const UsbEepromRow& row, ConversionFrame& frame) {
  for (std::uint32_t i = kEepromFirstWord; i < row.words; ++i) {
    const std::uint16_t word = frame.image.Be16(kEepromNameField + 2 * (std::size_t{i} - kEepromFirstWord));
    frame.WriteBe16(word);
    frame.Sum(word);
  }
}

void PatchOption(const UsbEepromRow& row, std::uint32_t config, bool eeprom, ConversionFrame& frame) {
  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  if (row.plainBytes) {
    option.PutAt(Field::ConfigWord.offset, static_cast<std::uint8_t>(config));
  } else {
    option.Put(Field::UsedLength, row.words);
    option.Put(Field::ImageLength, row.words);
    option.Put(Field::ConfigWord, config & kConfigOutBits);
    option.Put(Field::PartialChecksum, frame.state.PartialChecksum);
  }
  if (eeprom) {
    option.Put(Field::DualStart, std::uint32_t{row.eepromStart} << 8);
    option.Put(Field::EepromImage, kEepromFlag);
  }
  option.Put(Field::ProgramParameter, kProgramParameter);
  option.Put(Field::IspFlags, IspFlagsOf(frame.request, row.argumentClass));
}

}  // namespace

ConversionResults Convert(const UsbEepromRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, Names::LowerCase);
  const bool eeprom = frame.path.ends_with(".bin");
  if (const auto code = frame.OpenSerialFile(); code != kConverted) return {code};
  if (const auto code = frame.OpenPackages(); code != kConverted) return {code};
  if (const auto code = eeprom ? ReadEeprom(row, frame) : ReadHex(row, frame); code != kConverted) return {code};

  std::uint32_t config = *request.OptionValue;
  if (eeprom) {
    CopyEeprom(row, frame);
  } else {
    config = CopyProgram(row, frame);
  }
  frame.MaskChecksum();
  PatchOption(row, config, eeprom, frame);
  return frame.Finish({}, row.loadsImage ? ConversionFrame::Loaded::Image : ConversionFrame::Loaded::DataPackage);
}

}  // namespace pyxis
