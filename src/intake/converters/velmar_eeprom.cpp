#include "intake/converters/dispatch.h"
#include "intake/converters/made_eeprom.h"
#include "intake/converters/velmar.h"

namespace pyxis {

namespace {

ConverterCode ReadImage(const VelmarEepromRow& row, ConversionFrame& frame) {
  if (frame.path.ends_with(".bin")) return frame.ReadEepromImage(kMadeEepromName);
  if (const auto code = frame.ReadHexImage(kReadBytes); code != kConverted) return code;
  const bool ours = VelmarIdMatches(frame.image, VelmarIdOffset(row.imageBytes), row.idSecond, row.idThirdHigh);
  return ours ? kConverted : frame.TellIdError();
}

}  // namespace

ConversionResults Convert(const VelmarEepromRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, Names::LowerCase);
  if (const auto code = frame.OpenSerialFile(); code != kConverted) return {code};
  if (const auto code = frame.OpenPackages(); code != kConverted) return {code};
  if (const auto code = ReadImage(row, frame); code != kConverted) return {code};

  CopyVelmarImage(frame, row.imageBytes, row.imageBytes);
  const std::uint16_t config = CopyVelmarConfig(frame, row.imageBytes, kUnusedConfigBits);

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::UsedLength, row.imageBytes);
  option.Put(Field::ImageLength, row.imageBytes);
  option.Put(Field::ConfigWord, config & ~std::uint32_t{kUnusedConfigBits});
  option.Put(Field::IspFlags, IspFlagsOf(request, ArgumentClass::C));
  return frame.Finish({}, ConversionFrame::Loaded::DataPackage);
}

}  // namespace pyxis
