#include <array>
#include <string>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"
#include "intake/converters/hex14.h"
#include "intake/file_readers.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kNoId = 0;

struct UsbEepromRow {
  std::uint32_t ChipCode;
  const char* name;
  ReadMode mode;
  std::uint32_t idOffset;  // bytes; kNoId: the image isn't tested
  std::uint8_t idLow, idHigh;
  std::uint32_t words;
  ArgumentClass argumentClass;
  const char* eepromName;      // that an EEPROM image must carry
  std::uint8_t eepromStart;    // of an EEPROM image, in units of 256 words
  std::uint32_t forcedLength;  // of the temporary image; 0: up to the highest address
  bool plainBytes;             // bytes go out and are summed in file order; OptionValue is the configuration byte
  bool loadsImage;             // LoadedFilePath is the image, else the data package
};

// clang-format off
constexpr std::array<UsbEepromRow, 6> kTable{{
    // code   name     mode             id               words  class             EEPROM name    start forced  plain  loads
    {0x1645, "QVL09", kReadBlankWords, 16404, 0x45, 3,  8192,  ArgumentClass::C, "QVL09EEPROM", 0x17, 0,      false, false},
    {0x1655, "QVL12", kReadBlankWords, 16404, 0x55, 2,  8192,  ArgumentClass::C, "QVL12EEPROM", 0x17, 0,      false, false},
    {0x1646, "QVL10", kReadBlankWords, 12308, 0x46, 3,  6144,  ArgumentClass::B, "QVL10EEPROM", 0x17, 0,      false, true},
    {0x1650, "QVL11", kReadBlankWords, 8212,  0x50, 3,  4096,  ArgumentClass::B, "QVL11EEPROM", 0x0F, 0,      false, true},
    {0x1638, "QVL07", kReadZeroWords,  kNoId, 0, 0,     12288, ArgumentClass::B, "QVL07EEPROM", 0x0F, 0x6020, true,  true},
    {0x9840, "QVX03", kReadBytes,      kNoId, 0, 0,     8192,  ArgumentClass::C, "QVL09EEPROM", 0x17, 0,      false, false},
}};
// clang-format on
static_assert(KeysAreUnique(kTable));

constexpr std::size_t kEepromImageLength = 525;
constexpr std::size_t kEepromNameField = 13;
constexpr std::uint32_t kEepromFirstWord = 3840;
constexpr std::uint8_t kEepromFlag = 16;
constexpr std::uint16_t kSummedConfigSet = 0x1EFF;
constexpr std::uint16_t kSummedConfigBits = 0x1FFF;
constexpr std::uint16_t kConfigOutBits = 0x3FE0;
constexpr std::uint16_t kProgramParameter = 0xC008;

// The text of the name field, up to its first zero.
std::string EepromNameOf(const Image& image) {
  std::string name;
  for (std::size_t i = 0; i < kEepromNameField && image.Byte(i) != 0; ++i)
    name.push_back(static_cast<char>(image.Byte(i)));
  return name;
}

bool IdMatches(const UsbEepromRow& row, const Image& image) {
  return row.idOffset == kNoId ||
         (image.Byte(row.idOffset) == row.idLow && (image.Byte(row.idOffset + 1) & 3) == row.idHigh);
}

int ReadHex(const UsbEepromRow& row, ConversionFrame& frame) {
  ForcedImageLength = row.forcedLength;
  const int code = frame.ReadHexImage(row.mode);
  ForcedImageLength = 0;
  if (code != 0) return code;
  return IdMatches(row, frame.image) ? 0 : frame.TellIdError();
}

int ReadEeprom(const UsbEepromRow& row, ConversionFrame& frame) {
  if (int code = frame.ReadEepromImage(); code != 0) return code;
  const bool ours =
      EqualsNoCase(EepromNameOf(frame.image), row.eepromName) && frame.image.Length() == kEepromImageLength;
  return ours ? 0 : frame.TellOpenError(kReaderFailed, frame.path);
}

// The program words, and the configuration word behind them where the image holds it.
std::uint32_t CopyProgram(const UsbEepromRow& row, ConversionFrame& frame) {
  for (std::uint32_t i = 1; i <= row.words; ++i) {
    const std::size_t at = 2 * (std::size_t{i} - 1);
    const std::uint16_t word = row.plainBytes ? frame.image.Be16(at) : frame.image.Le16(at);
    frame.WriteBe16(word);
    ConversionFrame::Sum(word);
    if (!row.plainBytes) KeepPartialChecksum(i);
  }
  if (row.plainBytes) return *frame.request.OptionValue;
  const std::uint16_t config = frame.image.Word(row.words);
  TheAppState().conversion.SystemConfigWord = config;
  ConversionFrame::Sum((config | kSummedConfigSet) & kSummedConfigBits);
  return config;
}

void CopyEeprom(const UsbEepromRow& row, ConversionFrame& frame) {
  for (std::uint32_t i = kEepromFirstWord; i < row.words; ++i) {
    const std::uint16_t word = frame.image.Be16(kEepromNameField + 2 * (std::size_t{i} - kEepromFirstWord));
    frame.WriteBe16(word);
    ConversionFrame::Sum(word);
  }
}

void PatchOption(const UsbEepromRow& row, std::uint32_t config, bool eeprom, ConversionFrame& frame) {
  const AppState& app = TheAppState();
  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, app.conversion.ImageChecksum);
  if (row.plainBytes) {
    option.PutAt(Field::ConfigWord.offset, static_cast<std::uint8_t>(config));
  } else {
    option.Put(Field::UsedLength, row.words);
    option.Put(Field::ImageLength, row.words);
    option.Put(Field::ConfigWord, config & kConfigOutBits);
    option.Put(Field::PartialChecksum, app.conversion.PartialChecksum);
  }
  if (eeprom) {
    option.Put(Field::DualStart, std::uint32_t{row.eepromStart} << 8);
    option.Put(Field::EepromImage, kEepromFlag);
  }
  option.Put(Field::ProgramParameter, kProgramParameter);
  option.Put(Field::IspFlags, IspFlagsOf(frame.request, row.argumentClass));
}

int Convert(const UsbEepromRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, ToLower(request.Path));
  const bool eeprom = frame.path.ends_with(".bin");
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  if (int code = eeprom ? ReadEeprom(row, frame) : ReadHex(row, frame); code != 0) return code;

  std::uint32_t config = *request.OptionValue;
  if (eeprom) {
    CopyEeprom(row, frame);
  } else {
    config = CopyProgram(row, frame);
  }
  MaskChecksum();
  PatchOption(row, config, eeprom, frame);
  return frame.Finish({}, row.loadsImage ? frame.imagePath : DataPackagePath());
}

}  // namespace

bool ConvertUsbEeprom(const ConvertRequest& request, int& code) {
  const UsbEepromRow* row = FindRow(kTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
