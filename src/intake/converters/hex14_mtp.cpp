#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"
#include "intake/converters/hex14.h"

namespace pyxis {

namespace {

constexpr std::uint8_t kByte72 = 0xC0;

bool IdMatches(const Hex14MtpRow& row, const Image& image) {
  for (std::size_t i = 0; i < row.id.size(); ++i)
    if ((image.Byte(row.memory.idOffset + i) & row.id[i].mask) != row.id[i].value) return false;
  return true;
}

}  // namespace

ConversionResults Convert(const Hex14MtpRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request);
  if (const auto code = frame.OpenHexJob(row.mode); code != kConverted) return {code};
  if (!IdMatches(row, frame.image)) return {frame.TellIdError()};

  for (std::uint32_t i = 1; i <= row.memory.length; ++i) {
    const std::uint16_t word = frame.image.Word(i - 1);
    frame.WriteBe16(word);
    frame.Sum(word);
    frame.KeepPartialChecksum(i);
  }
  for (std::uint32_t i = 0; i < row.memory.copied; ++i) frame.WriteBe16(frame.image.Word(row.memory.length + i));

  const std::uint16_t config = frame.image.Word(row.memory.config);
  frame.state.SystemConfigWord = config;
  frame.Sum((config | row.sumMask) & kSummedConfigBits);
  frame.MaskChecksum();

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::UsedLength, row.memory.length);
  option.Put(Field::ImageLength, row.memory.length);
  option.Put(Field::ConfigWord, config & kConfigOutBits);
  option.Put(Field::PartialChecksum, frame.state.PartialChecksum);
  option.Put(Field::ProgramParameter, kByte72 << 8 | row.memory.byte73);
  if (row.argumentClass != ArgumentClass::A)
    option.Put(Field::IspFlags, IspFlagsOf(request, row.argumentClass, row.exhvFlags));
  return frame.Finish({}, ConversionFrame::Loaded::Image);
}

}  // namespace pyxis
