#include <array>
#include <span>

#include "intake/converters/families.h"
#include "intake/converters/velmar.h"
#include "intake/file_readers.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kChipCode = 0x3702;
constexpr char kName[] = "QV8123";
constexpr std::uint16_t kImageBytes = 16384;
constexpr std::size_t kIdOffset = 16432;
constexpr std::uint8_t kIdSecond = 0x02;
constexpr std::uint8_t kIdThirdHigh = 0x3;
constexpr std::size_t kBlockWords = 48;
constexpr std::uint16_t kConfigAddressBase = 0x2000;

// How the second byte of the option block sets the IC up.
struct BlockMode {
  std::uint8_t key;
  std::uint16_t dualSkip;   // words left out of the checksum
  std::size_t optionIndex;  // block word with the first option word
  std::uint16_t parameter;  // ProgramParameter
};
constexpr std::array<BlockMode, 2> kModes{{{0xFE, 0, 2, 53}, {0xE0, 4096, 10, 64}}};

const BlockMode* ModeOf(std::uint8_t key) {
  for (const BlockMode& mode : kModes)
    if (mode.key == key) return &mode;
  return nullptr;
}

// The 48 words behind the image: all of them go to the package, some of them into the checksum and together make the
// configuration word, which is returned.
std::uint16_t CopyBlock(const BlockMode& mode, ConversionFrame& frame) {
  unsigned top = 0, middle = 0, low = 0;
  for (std::size_t k = 0; k < kBlockWords; ++k) {
    unsigned a = frame.image.Byte(kImageBytes + 2 * k);
    const unsigned b = frame.image.Byte(kImageBytes + 2 * k + 1);
    bool summed = true;
    if (k < 2) {
      top = (a << 14) & 0xC000;
    } else if (k == mode.optionIndex) {
      middle = (a * 64 | b >> 2) & 0x3F20;
    } else if (k == mode.optionIndex + 1) {
      low = a & 0xDF;
      a |= kUnusedConfigBits;
    } else {
      summed = false;
    }
    frame.WriteByte(static_cast<std::uint8_t>(a));
    frame.WriteByte(static_cast<std::uint8_t>(b));
    if (summed) ConversionFrame::Sum(static_cast<std::uint16_t>(b << 8 | a));
  }
  return static_cast<std::uint16_t>(top + middle + low);
}

int Convert(const ConvertRequest& request) {
  AppState& app = TheAppState();
  ConversionFrame frame(request, ToLower(request.Path));
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(kName); code != 0) return code;
  if (int code = frame.ReadHexImage(kReadBytes); code != 0) return code;
  const BlockMode* mode = ModeOf(frame.image.Byte(kImageBytes + 1));
  if (!VelmarIdMatches(frame.image, kIdOffset, kIdSecond, kIdThirdHigh) || mode == nullptr) return frame.TellIdError();

  app.conversion.DualSkip = mode->dualSkip;
  for (std::uint32_t i = 0; i < kImageBytes / 2; ++i) {
    frame.WriteByte(frame.image.Byte(2 * i));
    frame.WriteByte(frame.image.Byte(2 * i + 1));
    if (i >= app.conversion.DualSkip) ConversionFrame::Sum(frame.image.Word(i));
  }
  const std::uint16_t config = CopyBlock(*mode, frame);
  app.conversion.SystemConfigWord = config;

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, app.conversion.ImageChecksum);
  option.Put(Field::UsedLength, kImageBytes);
  option.Put(Field::ImageLength, kImageBytes);
  option.Put(Field::ConfigAddress, static_cast<std::uint32_t>(kConfigAddressBase + mode->optionIndex));
  const std::span<const std::uint8_t> block = std::span(frame.data).subspan(kImageBytes);
  option.Put(Field::ReadBackOrder, block.first(4));  // and the three bytes behind it
  option.Put(Field::OptionWords, block.subspan(2 * mode->optionIndex, Field::OptionWords.width));
  option.Put(Field::ConfigWord, config);
  option.Put(Field::DualStart, app.conversion.DualSkip);
  option.Put(Field::ProgramParameter, mode->parameter);
  option.Put(Field::IspFlags, IspFlagsOf(request, ArgumentClass::C));
  return frame.Finish({}, frame.imagePath);
}

}  // namespace

bool ConvertVelmarBlock(const ConvertRequest& request, int& code) {
  if (request.ChipCode != kChipCode) return false;
  code = Convert(request);
  return true;
}

}  // namespace pyxis
