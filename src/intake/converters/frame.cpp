#include "intake/converters/frame.h"

#include <array>

#include "intake/file_readers.h"
#include "platform/byte_order.h"
#include "platform/clock.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

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

ConversionFrame::ConversionFrame(const ConvertRequest& convertRequest, std::string programPath)
    : request(convertRequest),
      path(std::move(programPath)),
      stem(StemOf(path)),
      imagePath(stem + ".bin"),
      massProduction_(convertRequest.MassProduction) {
  TheAppState().conversion.ImageChecksum = 0xFFFF;
}

int ConversionFrame::TellOpenError(int code, const std::string& failedPath) const {
  TheMachine().op->Tell(Printf("%s open file error\n", failedPath.c_str()), kPlainCaption);
  return code;
}

int ConversionFrame::TellIdError(int code) const {
  TheMachine().op->Tell(Printf("%s ID error\n", path.c_str()), kPlainCaption);
  return code;
}

// Most packages are about as long as their image.
void ConversionFrame::TakeImage(std::vector<std::uint8_t> bytes) {
  data.reserve(bytes.size() + kReserve);
  image = Image(std::move(bytes));
}

int ConversionFrame::OpenProgramFile() {
  auto bytes = ReadForUpdate(path);
  if (!bytes) return TellOpenError(kSourceFailed, path);
  TakeImage(std::move(*bytes));
  return 0;
}

int ConversionFrame::OpenSerialFile() {
  if (!request.SnMode) return 0;
  massProduction_ = false;
  auto bytes = ReadForUpdate(SerialFilePath());
  if (!bytes) {
    TheMachine().op->Tell("SNFile open file error\n", kPlainCaption);
    return kSourceFailed;
  }
  serial = std::move(*bytes);
  return 0;
}

int ConversionFrame::OpenPackages(const std::string& templateName) {
  auto bytes = ReadForUpdate(TemplatePath(templateName));
  if (!bytes) return TellOpenError(kSourceFailed, path);
  templateBytes = std::move(*bytes);
  optionFile_ = ReplacedFile(OptionPackagePath());
  if (!optionFile_.IsOpen()) return TellOpenError(kOptionFailed, path);
  dataFile_ = ReplacedFile(DataPackagePath());
  if (!dataFile_.IsOpen()) return TellOpenError(kDataFailed, path);
  option.bytes = templateBytes;
  return 0;
}

int ConversionFrame::ReadHexImage(int mode) {
  if (ReadIntelHex(path, imagePath, mode) != 0) return TellOpenError(kReaderFailed, path);
  auto bytes = ReadForUpdate(imagePath);
  if (!bytes) return TellOpenError(kImageFailed, imagePath);
  TakeImage(std::move(*bytes));
  return 0;
}

int ConversionFrame::ReadEepromImage() {
  imagePath = stem + "_new.bin";
  if (ReadEepromBin(path, imagePath) == 0) return kSourceFailed;
  auto bytes = ReadForUpdate(imagePath);
  if (!bytes) return TellOpenError(kImageFailed, imagePath);
  TakeImage(std::move(*bytes));
  return 0;
}

void ConversionFrame::Sum(std::uint16_t word) {
  AppState& app = TheAppState();
  app.conversion.ImageChecksum = ChecksumAfter(app.conversion.ImageChecksum, word);
  app.conversion.ChecksumInput = 0;
}

void ConversionFrame::WriteBe16(std::uint16_t word) {
  data.push_back(static_cast<std::uint8_t>(word >> 8));
  data.push_back(static_cast<std::uint8_t>(word));
}

int ConversionFrame::WritePackages() {
  if (!dataFile_.Write(data)) {
    TheMachine().op->Tell(Printf("%s write file error\n", DataPackagePath().c_str()), kPlainCaption);
    return kDataFailed;
  }
  if (!optionFile_.Write(option.bytes)) {
    TheMachine().op->Tell(Printf("%s write file error\n", OptionPackagePath().c_str()), kPlainCaption);
    return kOptionFailed;
  }
  return 0;
}

int ConversionFrame::Finish(const Tail& tail, const std::string& loadedPath) {
  option.Put(Field::HeaderChecksum, tail.headerChecksum);
  if (massProduction_) option.Put(Field::ProductionFlags, kProductionMass);
  if (request.ProductionLimitOn) {
    option.Put(Field::ProductionFlags, kProductionLimit);
    option.Put(Field::ProductionLimit, request.ProductionLimitBcd);
  }
  if (request.SnMode && tail.serial) {
    if (const int code = tail.moveSerial ? tail.moveSerial(*this) : 0; code != 0) {
      WritePackages();
      return code;
    }
    const Image from(serial);  // a short serial file reads as 0xFF behind its end
    for (const FieldPlace field : {Field::SerialHead, Field::SerialBlock})
      for (std::size_t i = field.offset; i < field.offset + field.width; ++i) option.PutAt(i, from.Byte(i));
  }
  option.Put(Field::DownloadTime, TimeStamp());
  for (std::size_t i = Field::DownloadTime.offset + Field::DownloadTime.width; i < tail.zeroFillTo; ++i)
    option.PutAt(i, 0);
  if (const int code = WritePackages(); code != 0) return code;
  TheAppState().conversion.LoadedFilePath = loadedPath;
  return kConverted;
}

std::uint8_t IspFlagsOf(const ConvertRequest& request, ArgumentClass argumentClass, std::uint8_t exhvValue) {
  if (argumentClass != ArgumentClass::A && request.ExhvIsp) return exhvValue;
  return argumentClass == ArgumentClass::C && request.IspProgram ? 2 : 0;
}

}  // namespace pyxis
