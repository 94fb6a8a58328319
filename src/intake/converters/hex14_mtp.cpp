#include "intake/converters/hex14.h"
#include "intake/converters/hex14_mtp_table.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::uint16_t kSummedConfigBits = 0x1FFF;
constexpr std::uint16_t kConfigOutBits = 0x3FE0;
constexpr std::uint8_t kByte72 = 0xC0;

bool IdMatches(const IdBytes& id, const Image& image) {
  for (std::uint32_t i = 0; i < std::size(id.tests); ++i)
    if ((image.Byte(id.offset + i) & id.tests[i].mask) != id.tests[i].value) return false;
  return true;
}

int Convert(const Hex14MtpRow& row, const ConvertRequest& request) {
  AppState& app = TheAppState();
  ConversionFrame frame(request, request.Path);
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  if (int code = frame.ReadHexImage(row.mode); code != 0) return code;
  if (!IdMatches(row.id, frame.image)) return frame.TellIdError();

  for (std::uint32_t i = 1; i <= row.length; ++i) {
    const std::uint16_t word = frame.image.Word(i - 1);
    frame.WriteBe16(word);
    ConversionFrame::Sum(word);
    KeepPartialChecksum(i);
  }
  for (std::uint32_t i = 0; i < row.copied; ++i) frame.WriteBe16(frame.image.Word(row.length + i));

  const std::uint16_t config = frame.image.Word(row.config);
  app.conversion.SystemConfigWord = config;
  ConversionFrame::Sum((config | row.sumMask) & kSummedConfigBits);
  MaskChecksum();

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, app.conversion.ImageChecksum);
  option.Put(Field::UsedLength, row.length);
  option.Put(Field::ImageLength, row.length);
  option.Put(Field::ConfigWord, config & kConfigOutBits);
  option.Put(Field::PartialChecksum, app.conversion.PartialChecksum);
  option.Put(Field::ProgramParameter, kByte72 << 8 | row.byte73);
  if (row.argumentClass != ArgumentClass::A)
    option.Put(Field::IspFlags, IspFlagsOf(request, row.argumentClass, row.exhvFlags));
  return frame.Finish({}, frame.imagePath);
}

}  // namespace

bool ConvertHex14Mtp(const ConvertRequest& request, int& code) {
  const Hex14MtpRow* row = FindRow(kHex14MtpTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
