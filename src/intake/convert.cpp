#include "intake/convert.h"

#include "intake/converters/families.h"
#include "intake/package_files.h"
#include "platform/files.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr int kNoConverter = -1;
constexpr std::uint8_t kModelByteKm48 = 0x98;
constexpr std::uint8_t kModelByteOther = 0x99;

int lastConverterCode = kNoConverter;

using Family = bool (*)(const ConvertRequest&, int&);
constexpr Family kFamilies[] = {ConvertHex14Otp,    ConvertHex14Mtp,    ConvertVelmarFlash, ConvertEpm4,
                                ConvertOtp4,        ConvertUsbHex,      ConvertUsbObj,      ConvertUsbEeprom,
                                ConvertVelmarBlock, ConvertVelmarEeprom};

// Into the option package as it lies on the disk, whatever became of the conversion.
void WriteModelByte() {
  const File file = OpenFile(OptionPackagePath(), "r+b");
  if (!file) return;
  if (std::fseek(file.get(), static_cast<long>(Field::WriterModelByte.offset), SEEK_SET) != 0) return;
  std::fputc(TheAppState().writer.WriterModel == Model::Km48 ? kModelByteKm48 : kModelByteOther, file.get());
}

}  // namespace

int ConvertFile(const ConvertRequest& request) {
  TheAppState().conversion.SystemConfigWord = kNoSystemConfig;
  lastConverterCode = kNoConverter;
  for (const Family convert : kFamilies)
    if (convert(request, lastConverterCode)) break;
  WriteModelByte();
  return lastConverterCode == 0 ? 0 : 1;
}

int LastConverterCode() { return lastConverterCode; }

std::uint32_t PackedDecimal(std::int32_t count) {
  std::uint32_t packed = 0;
  for (const char digit : Printf("%d", count < 0 ? 0 : count).substr(0, 8))
    packed = packed << 4 | static_cast<std::uint32_t>(digit - '0');
  return packed;
}

}  // namespace pyxis
