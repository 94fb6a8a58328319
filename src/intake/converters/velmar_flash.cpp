#include "intake/converters/dispatch.h"
#include "intake/converters/velmar.h"

namespace pyxis {

namespace {

constexpr std::size_t kSizeByte = 7;  // behind the ID offset; its low nibble selects the protected tail

}  // namespace

ConversionResults Convert(const VelmarFlashRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, Names::LowerCase);
  if (const auto code = frame.OpenHexJob(kReadBytes); code != kConverted) return {code};
  const std::size_t id = VelmarIdOffset(row.imageBytes);
  if (!VelmarIdMatches(frame.image, id, row.idSecond, row.idThirdHigh)) return {frame.TellIdError()};

  // Negative when the tail is larger than the image: then no word is summed.
  const std::int32_t sumLength = row.imageBytes - kProtectedTail[frame.image.Byte(id + kSizeByte) & kLowNibble];
  CopyVelmarImage(frame, row.imageBytes, sumLength);
  const std::uint16_t unused = row.wholeConfig ? 0 : kUnusedConfigBits;
  const std::uint16_t config = CopyVelmarConfig(frame, row.imageBytes, unused);

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::ChecksumLength, static_cast<std::uint32_t>(sumLength));
  option.Put(Field::UsedLength, static_cast<std::uint32_t>(row.usedInWords ? sumLength / 2 : sumLength));
  option.Put(Field::ImageLength, static_cast<std::uint32_t>(sumLength));
  option.Put(Field::ConfigWord, config & ~std::uint32_t{unused});
  option.Put(Field::IspFlags, IspFlagsOf(request, ArgumentClass::C));
  return frame.Finish({}, ConversionFrame::Loaded::Image);
}

}  // namespace pyxis
