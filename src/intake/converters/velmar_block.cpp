#include <algorithm>
#include <span>

#include "intake/converters/dispatch.h"
#include "intake/converters/velmar.h"

namespace pyxis {

namespace {

constexpr std::uint16_t kConfigAddressBase = 0x2000;

const BlockMode* ModeOf(const VelmarBlockRow& row, std::uint8_t key) {
  const auto found = std::ranges::find(row.modes, key, &BlockMode::key);
  return found == row.modes.end() ? nullptr : &*found;
}

// The words behind the image: all of them go to the package, some of them into the checksum and together make the
// configuration word, which is returned.
std::uint16_t CopyBlock(const VelmarBlockRow& row, const BlockMode& mode, ConversionFrame& frame) {
  unsigned top = 0, middle = 0, low = 0;
  for (std::size_t k = 0; k < row.blockWords; ++k) {
    unsigned a = frame.image.Byte(row.imageBytes + 2 * k);
    const unsigned b = frame.image.Byte(row.imageBytes + 2 * k + 1);
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
    if (summed) frame.Sum(static_cast<std::uint16_t>(b << 8 | a));
  }
  return static_cast<std::uint16_t>(top + middle + low);
}

}  // namespace

ConversionResults Convert(const VelmarBlockRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, Names::LowerCase);
  if (const auto code = frame.OpenHexJob(kReadBytes); code != kConverted) return {code};
  const BlockMode* mode = ModeOf(row, frame.image.Byte(row.imageBytes + 1));
  if (!VelmarIdMatches(frame.image, row.idOffset, row.idSecond, row.idThirdHigh) || mode == nullptr)
    return {frame.TellIdError()};

  frame.state.DualSkip = mode->dualSkip;
  for (std::uint32_t i = 0; i < row.imageBytes / 2U; ++i) {
    frame.CopyPair(std::size_t{2} * i);
    if (i >= frame.state.DualSkip) frame.Sum(frame.image.Word(i));
  }
  const std::uint16_t config = CopyBlock(row, *mode, frame);
  frame.state.SystemConfigWord = config;

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::UsedLength, row.imageBytes);
  option.Put(Field::ImageLength, row.imageBytes);
  option.Put(Field::ConfigAddress, static_cast<std::uint32_t>(kConfigAddressBase + mode->optionIndex));
  const std::span<const std::uint8_t> block = std::span(frame.data).subspan(row.imageBytes);
  option.Put(Field::ReadBackOrder, block.first(4));  // and the three bytes behind it
  option.Put(Field::OptionWords, block.subspan(2 * mode->optionIndex, Field::OptionWords.width));
  option.Put(Field::ConfigWord, config);
  option.Put(Field::DualStart, frame.state.DualSkip);
  option.Put(Field::ProgramParameter, mode->parameter);
  option.Put(Field::IspFlags, IspFlagsOf(request, ArgumentClass::C));
  return frame.Finish({}, ConversionFrame::Loaded::Image);
}

}  // namespace pyxis
