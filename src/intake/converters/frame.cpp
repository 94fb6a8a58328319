#include "intake/converters/frame.h"

#include <array>

#include "catalogue/chip_catalogue.h"
#include "intake/converters/hex14.h"
#include "platform/byte_order.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "platform/text.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

constexpr std::size_t kReserve = 256;

std::string StemOf(const std::string& path) { return path.substr(0, path.rfind('.')); }

std::array<std::uint8_t, 16> TimeStamp() {
  const LocalTime now = TheMachine().clock->Now();
  const std::uint16_t fields[8] = {now.year, now.month,  now.dayOfWeek, now.day,
                                   now.hour, now.minute, now.second,    now.milliseconds};
  std::array<std::uint8_t, 16> stamp;
  for (std::size_t i = 0; i < 8; ++i) StoreLe16(stamp.data() + 2 * i, fields[i]);
  return stamp;
}

}  // namespace

ConversionFrame::ConversionFrame(const ConvertRequest& convertRequest, Names names)
    : request(convertRequest),
      state(TheAppState().conversion),
      path(names == Names::LowerCase ? ToLower(request.Path) : request.Path),
      templateName(IcOfCode(request.ChipCode)->templateName),
      massProduction_(request.MassProduction) {
  state.ImageChecksum = 0xFFFF;
}

// The folder is the program file's own, as chosen: a lower-cased folder may be another one.
ConversionFrame::Beside ConversionFrame::FileBeside(const std::string& ending) const {
  const std::string name = StemOf(path) + ending;
  const std::string chosen = StemOf(request.Path);
  const std::size_t folder = chosen.rfind(kPathSeparator) + 1;
  return {name, chosen.substr(0, folder) + name.substr(folder)};
}

ConverterCode ConversionFrame::TellOpenError(ConverterCode code, const std::string& failedPath) const {
  request.Tell(Printf(kOpenFileError, failedPath.c_str()));
  return code;
}

ConverterCode ConversionFrame::TellWriteError(ConverterCode code, const std::string& failedPath) const {
  request.Tell(Printf(kWriteFileError, failedPath.c_str()));
  return code;
}

ConverterCode ConversionFrame::TellIdError(ConverterCode code) const {
  request.Tell(Printf("%s ID error\n", path.c_str()));
  return code;
}

ConverterCode ConversionFrame::WriteBeside(const std::string& ending, std::span<const std::uint8_t> bytes) const {
  const Beside file = FileBeside(ending);
  return WriteWholeFile(file.place, bytes) ? kConverted : TellWriteError(kImageFailed, file.path);
}

// Most packages are about as long as their image.
ConverterCode ConversionFrame::TakeImage() {
  auto bytes = ReadForUpdate(image_.place);
  if (!bytes) return TellOpenError(kImageFailed, image_.path);
  data.reserve(bytes->size() + kReserve);
  image = Image(std::move(*bytes));
  return kConverted;
}

ConverterCode ConversionFrame::OpenProgramFile() {
  image_ = {path, request.Path};
  return TakeImage() == kConverted ? kConverted : kSourceFailed;
}

ConverterCode ConversionFrame::OpenSerialFile() {
  if (!request.SnMode) return kConverted;
  massProduction_ = false;
  auto bytes = ReadForUpdate(SerialFilePath());
  if (!bytes) {
    request.Tell("SNFile open file error\n");
    return kSourceFailed;
  }
  serial = std::move(*bytes);
  return kConverted;
}

ConverterCode ConversionFrame::OpenPackages() {
  auto bytes = ReadForUpdate(TemplatePath(templateName));
  if (!bytes) return TellOpenError(kSourceFailed, path);
  templateBytes = std::move(*bytes);
  optionFile_ = ReplacedFile(OptionPackagePath());
  if (!optionFile_.IsOpen()) return TellOpenError(kOptionFailed, path);
  dataFile_ = ReplacedFile(DataPackagePath());
  if (!dataFile_.IsOpen()) return TellOpenError(kDataFailed, path);
  option.bytes = templateBytes;
  return kConverted;
}

ConverterCode ConversionFrame::ReadHexImage(ReadMode mode, std::uint32_t forcedLength) {
  image_ = FileBeside(".bin");
  if (ReadIntelHex(request.Path, image_.place, mode, forcedLength) != 0) return TellOpenError(kReaderFailed, path);
  return TakeImage();
}

ConverterCode ConversionFrame::ReadEepromImage(std::string_view name) {
  image_ = FileBeside("_new.bin");
  return ReadEepromBin(request.Path, image_.place, name, request.Tell) == 0 ? kSourceFailed : TakeImage();
}

ConverterCode ConversionFrame::OpenHexJob(ReadMode mode) {
  if (const auto code = OpenSerialFile(); code != kConverted) return code;
  if (const auto code = OpenPackages(); code != kConverted) return code;
  return ReadHexImage(mode);
}

void ConversionFrame::KeepPartialChecksum(std::uint32_t number) {
  if (number == kPartialChecksumWord) state.PartialChecksum = state.ImageChecksum & kWordMask;
}

void ConversionFrame::MaskChecksum() { state.ImageChecksum &= kWordMask; }

void ConversionFrame::WriteBe16(std::uint16_t word) {
  data.push_back(static_cast<std::uint8_t>(word >> 8));
  data.push_back(static_cast<std::uint8_t>(word));
}

bool ConversionFrame::WriteSerialRange() const {
  File file = OpenFile(SerialFilePath(), "r+b");
  const std::span<const std::uint8_t> range = std::span(serial).subspan(kSerialRange.offset, kSerialRange.width);
  const bool written = file && std::fseek(file.get(), static_cast<long>(kSerialRange.offset), SEEK_SET) == 0 &&
                       std::fwrite(range.data(), 1, range.size(), file.get()) == range.size();
  return CloseFile(std::move(file)) && written;
}

// serial.txt last: a job whose packages don't stand mustn't move it.
ConverterCode ConversionFrame::WritePackages() {
  if (!dataFile_.Write(data)) return TellWriteError(kDataFailed, DataPackagePath());
  if (!optionFile_.Write(option.bytes)) return TellWriteError(kOptionFailed, OptionPackagePath());
  if (serialMoved && !WriteSerialRange()) return TellWriteError(kSourceFailed, SerialFilePath());
  return kConverted;
}

ConversionResults ConversionFrame::Finish(const Tail& tail, Loaded loaded) {
  option.Put(Field::HeaderChecksum, tail.headerChecksum);
  if (massProduction_) option.Put(Field::ProductionFlags, kProductionMass);
  if (request.ProductionLimitOn) {
    option.Put(Field::ProductionFlags, kProductionLimit);
    option.Put(Field::ProductionLimit, request.ProductionLimitBcd);
  }
  if (request.SnMode && tail.serial) {
    if (const auto code = tail.moveSerial ? tail.moveSerial(*this) : kConverted; code != kConverted) {
      WritePackages();
      return {code};
    }
    const Image from(serial);  // a short serial file reads as 0xFF behind its end
    for (const FieldPlace field : {Field::SerialHead, Field::SerialBlock})
      for (std::size_t i = field.offset; i < field.offset + field.width; ++i) option.PutAt(i, from.Byte(i));
  }
  option.Put(Field::DownloadTime, TimeStamp());
  for (std::size_t i = Field::DownloadTime.offset + Field::DownloadTime.width; i < tail.zeroFillTo; ++i)
    option.PutAt(i, 0);
  if (const auto code = WritePackages(); code != kConverted) return {code};
  switch (loaded) {
    case Loaded::ProgramFile:
      return {.code = kConverted, .LoadedFilePath = path, .shownFile = request.Path};
    case Loaded::Image:
      return {.code = kConverted, .LoadedFilePath = image_.path, .shownFile = image_.place};
    case Loaded::DataPackage:
      break;
  }
  return {.code = kConverted, .LoadedFilePath = DataPackagePath(), .shownFile = DataPackagePath()};
}

std::uint8_t IspFlagsOf(const ConvertRequest& request, ArgumentClass argumentClass, std::uint8_t exhvValue) {
  if (argumentClass != ArgumentClass::A && request.ExhvIsp) return exhvValue;
  return argumentClass == ArgumentClass::C && request.IspProgram ? kIspBit : 0;
}

}  // namespace pyxis
