#include "intake/converters/families.h"
#include "intake/converters/velmar.h"
#include "intake/file_readers.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

// One flash IC whose program file may be raw EEPROM content as well.
struct VelmarEepromRow {
  std::uint32_t ChipCode;
  const char* name;
  std::uint16_t imageBytes;
  std::uint32_t idOffset;
  std::uint8_t idSecond, idThirdHigh;
};
constexpr std::array<VelmarEepromRow, 1> kTable{{{0x37061, "QV8401", 4094, 4096, 0x06, 0x2}}};

int ReadImage(const VelmarEepromRow& row, ConversionFrame& frame) {
  if (frame.path.ends_with(".bin")) return frame.ReadEepromImage();
  if (int code = frame.ReadHexImage(kReadBytes); code != 0) return code;
  return VelmarIdMatches(frame.image, row.idOffset, row.idSecond, row.idThirdHigh) ? 0 : frame.TellIdError();
}

int Convert(const VelmarEepromRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, ToLower(request.Path));
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  if (int code = ReadImage(row, frame); code != 0) return code;

  CopyVelmarImage(frame, row.imageBytes, row.imageBytes);
  const std::uint16_t config = CopyVelmarConfig(frame, row.imageBytes, kUnusedConfigBits);

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, TheAppState().conversion.ImageChecksum);
  option.Put(Field::UsedLength, row.imageBytes);
  option.Put(Field::ImageLength, row.imageBytes);
  option.Put(Field::ConfigWord, config & ~std::uint32_t{kUnusedConfigBits});
  option.Put(Field::IspFlags, IspFlagsOf(request, ArgumentClass::C));
  return frame.Finish({}, DataPackagePath());
}

}  // namespace

bool ConvertVelmarEeprom(const ConvertRequest& request, int& code) {
  const VelmarEepromRow* row = FindRow(kTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
