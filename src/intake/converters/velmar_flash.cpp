#include "intake/converters/velmar.h"
#include "intake/converters/velmar_flash_table.h"
#include "intake/file_readers.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::size_t kSizeByte = 7;  // behind the ID offset; its low nibble selects the protected tail

int Convert(const VelmarFlashRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, ToLower(request.Path));
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  if (int code = frame.ReadHexImage(kReadBytes); code != 0) return code;
  if (!VelmarIdMatches(frame.image, row.idOffset, row.idSecond, row.idThirdHigh)) return frame.TellIdError();

  // Negative when the tail is larger than the image: then no word is summed.
  const std::int32_t sumLength = row.imageBytes - kProtectedTail[frame.image.Byte(row.idOffset + kSizeByte) & 0x0F];
  CopyVelmarImage(frame, row.imageBytes, sumLength);
  const std::uint16_t unused = row.wholeConfig ? 0 : kUnusedConfigBits;
  const std::uint16_t config = CopyVelmarConfig(frame, row.imageBytes, unused);

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, TheAppState().conversion.ImageChecksum);
  option.Put(Field::ChecksumLength, static_cast<std::uint32_t>(sumLength));
  option.Put(Field::UsedLength, static_cast<std::uint32_t>(row.usedInWords ? sumLength / 2 : sumLength));
  option.Put(Field::ImageLength, static_cast<std::uint32_t>(sumLength));
  option.Put(Field::ConfigWord, config & ~std::uint32_t{unused});
  option.Put(Field::IspFlags, IspFlagsOf(request, ArgumentClass::C));
  return frame.Finish({}, frame.imagePath);
}

}  // namespace

bool ConvertVelmarFlash(const ConvertRequest& request, int& code) {
  const VelmarFlashRow* row = FindRow(kVelmarFlashTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
