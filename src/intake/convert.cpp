#include "intake/convert.h"

#include <algorithm>

#include "intake/converters/dispatch.h"
#include "intake/package_files.h"
#include "platform/files.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

// Into the option package as it lies on the disk, whatever became of the conversion. One that can't be opened is passed
// over; false when the byte didn't reach the file.
bool WriteModelByte(const Report& tell) {
  File file = OpenFile(OptionPackagePath(), "r+b");
  if (!file) return true;
  const int model = RegisterOf(TheAppState().writer.WriterModel);
  const bool placed = std::fseek(file.get(), static_cast<long>(Field::WriterModelByte.offset), SEEK_SET) == 0;
  const bool written = placed && std::fputc(model, file.get()) != EOF;
  if (CloseFile(std::move(file)) && written) return true;
  tell(Printf(kWriteFileError, OptionPackagePath().c_str()));
  return false;
}

}  // namespace

ConversionResults ConvertFile(const ConvertRequest& request) {
  ConversionState& state = TheAppState().conversion;
  state.SystemConfigWord = kNoSystemConfig;
  ConversionResults results;
  if (const ConverterEntry* entry = FindConverter(request.ChipCode))
    results = std::visit([&request](const auto* row) { return Convert(*row, request); }, entry->row);
  results.result = WriteModelByte(request.Tell) && results.code == kConverted ? 0 : 1;
  if (results.Good()) state.LoadedFilePath = results.LoadedFilePath;
  return results;
}

std::uint32_t PackedDecimal(std::int32_t count) {
  std::uint32_t packed = 0;
  for (const char digit : Printf("%d", std::max(count, 0)).substr(0, 8))
    packed = packed << 4 | static_cast<std::uint32_t>(digit - '0');
  return packed;
}

}  // namespace pyxis
