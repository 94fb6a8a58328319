#include <array>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::size_t kHeader = 32;  // bytes, skipped

enum class Unit { Byte, Word };

struct Otp4Row {
  std::uint32_t ChipCode;
  const char* name;
  Unit unit;
  std::size_t configOffset;
  std::size_t words;  // copied and summed; a byte IC takes the file's length
};

constexpr std::array<Otp4Row, 3> kTable{{
    {0x1395, "QV4105", Unit::Byte, 8223, 0},
    {0x1396, "QV4106", Unit::Word, 16414, 6512},
    {0x1397, "QV4103", Unit::Word, 16414, 6512},
}};
static_assert(KeysAreUnique(kTable));

constexpr unsigned kProtectBit = 1;  // of the configuration: 0 means protected
constexpr unsigned kClearedOut = 2;  // always 0 in the package
constexpr unsigned kSummedSet = 3;   // always 1 in the checksum

// The operator's choice Protect clears the bit.
unsigned WithProtection(unsigned config, const ConvertRequest& request) {
  return *request.OptionValue != 0 ? config : config & ~kProtectBit;
}

std::uint16_t CopyBytes(const Otp4Row& row, ConversionFrame& frame) {
  const Image& image = frame.image;
  const std::uint8_t stored = image.Byte(row.configOffset);
  frame.WriteByte(stored);
  const std::size_t last = image.Length() > kHeader ? image.Length() - 1 : kHeader;
  for (std::size_t at = kHeader; at < last; ++at) {
    frame.WriteByte(image.Byte(at));
    ConversionFrame::Sum(image.Byte(at));
  }
  ConversionFrame::Sum(image.Byte(last) | kSummedSet);
  return static_cast<std::uint16_t>((WithProtection(stored, frame.request) & ~kClearedOut) << 8);
}

std::uint16_t CopyWords(const Otp4Row& row, ConversionFrame& frame) {
  const Image& image = frame.image;
  const std::uint16_t stored = image.Le16(row.configOffset);
  frame.WriteBe16(stored);
  for (std::size_t i = 0; i < row.words; ++i) {
    const std::uint16_t word = image.Le16(kHeader + 2 * i);
    frame.WriteBe16(word);
    ConversionFrame::Sum(word);
  }
  const unsigned config = WithProtection(stored, frame.request);
  ConversionFrame::Sum(static_cast<std::uint16_t>(config | kSummedSet));
  return static_cast<std::uint16_t>(config & ~kClearedOut);
}

int Convert(const Otp4Row& row, const ConvertRequest& request) {
  ConversionFrame frame(request, request.Path);
  if (int code = frame.OpenProgramFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  const std::uint16_t config = row.unit == Unit::Byte ? CopyBytes(row, frame) : CopyWords(row, frame);
  frame.option.Put(Field::ImageChecksum, TheAppState().conversion.ImageChecksum);
  frame.option.Put(Field::ConfigWord, config);
  return frame.Finish({.serial = false}, frame.path);
}

}  // namespace

bool ConvertOtp4(const ConvertRequest& request, int& code) {
  const Otp4Row* row = FindRow(kTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
