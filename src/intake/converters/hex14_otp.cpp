#include <algorithm>

#include "intake/converters/hex14.h"
#include "intake/converters/hex14_otp_table.h"
#include "intake/file_readers.h"
#include "platform/byte_order.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::uint16_t kNotDualBit = 0x1000;  // of the configuration word: 0 means dual mode
constexpr std::uint16_t kProtectBit = 0x0800;  // of the configuration word: 0 means protected
constexpr std::uint16_t kDualSumBits = 0x3000;
constexpr std::uint8_t kFlagSet = 16;
constexpr int kTrailingBlanks = 4;  // in the place of the configuration word and what follows it

// Addresses of the serial bytes in serial.txt.
constexpr std::size_t kSerialStart = 55;
constexpr std::size_t kSerialEnd = 57;

void CopyWords(const Hex14OtpRow& row, ConversionFrame& frame) {
  AppState& app = TheAppState();
  for (std::uint32_t i = 1; i <= row.length; ++i) {
    const std::uint16_t word = frame.image.Word(i - 1);
    frame.WriteBe16(word);
    if (i <= app.conversion.DualSkip) continue;
    ConversionFrame::Sum(word);
    KeepPartialChecksum(i);
    if (row.used == UsedWords::Tracked && word != kBlankWord) app.conversion.UsedLength = i;
  }
  for (std::uint32_t i = 0; i < row.copied; ++i) frame.WriteBe16(frame.image.Word(row.length + i));
  for (std::uint32_t i = 0; i < row.blanks; ++i) frame.WriteBe16(kBlankWord);
}

void SumConfig(const Hex14OtpRow& row, std::uint16_t config) {
  AppState& app = TheAppState();
  app.conversion.SystemConfigWord = config;
  ConversionFrame::Sum(config | row.sumMask);
  MaskChecksum();
  if (app.conversion.DualSkip != 0 && row.dualSumBits) app.conversion.ImageChecksum |= kDualSumBits;
}

void PatchOption(const Hex14OtpRow& row, std::uint16_t config, ConversionFrame& frame) {
  const AppState& app = TheAppState();
  const bool dual = app.conversion.DualSkip != 0;
  const unsigned output = (config & ~unsigned{row.outputClear}) | row.outputSet;
  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, app.conversion.ImageChecksum);
  option.Put(Field::UsedLength, row.used == UsedWords::Tracked ? app.conversion.UsedLength : row.length);
  option.Put(Field::ImageLength, row.length);
  option.Put(Field::ConfigWord, output & kWordMask);
  option.Put(Field::PartialChecksum, app.conversion.PartialChecksum);
  if (row.protectByte && (config & kProtectBit) == 0) option.PutAt(Field::ProtectFlags.offset, kFlagSet);
  option.Put(Field::DualStart, app.conversion.DualSkip);
  option.Put(Field::ProgramParameter, std::uint32_t{row.byte72} << 8 | (dual ? row.dualByte73 : 0xFFU));
  if (row.isp == IspByte::ExhvIsp) option.Put(Field::IspFlags, frame.request.ExhvIsp ? 1 : 0);
  if (row.isp == IspByte::DualMode) option.Put(Field::IspFlags, dual ? kFlagSet : 0);
}

// Moves the serial range of a job in dual mode, in serial.txt itself: a second conversion moves it again.
int MoveSerial(const SerialMove& move, ConversionFrame& frame) {
  if (TheAppState().conversion.DualSkip == 0) return 0;
  const Image before(frame.serial);
  std::uint8_t moved[4] = {
      static_cast<std::uint8_t>(before.Byte(kSerialStart) + move.shift), before.Byte(kSerialStart + 1),
      static_cast<std::uint8_t>(before.Byte(kSerialEnd) + move.shift), before.Byte(kSerialEnd + 1)};
  if (LoadBe16(moved + 2) >= move.limit) {
    TheMachine().op->Tell(move.message, kPlainCaption);
    return kSourceFailed;
  }
  if (frame.serial.size() < kSerialStart + sizeof moved) frame.serial.resize(kSerialStart + sizeof moved, 0);
  std::copy(std::begin(moved), std::end(moved), frame.serial.begin() + kSerialStart);

  File file = OpenFile(SerialFilePath(), "r+b");
  const bool written = file && std::fseek(file.get(), static_cast<long>(kSerialStart), SEEK_SET) == 0 &&
                       std::fwrite(moved, 1, sizeof moved, file.get()) == sizeof moved;
  if (!CloseFile(std::move(file)) || !written) {
    TheMachine().op->Tell(Printf("%s write file error\n", SerialFilePath().c_str()), kPlainCaption);
    return kSourceFailed;
  }
  return 0;
}

int Convert(const Hex14OtpRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request, request.Path);
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;
  if (int code = frame.ReadHexImage(kReadBlankWords); code != 0) return code;

  const std::uint16_t id = frame.image.Word(row.idWord);
  if ((id & 0xFF) != row.idLow || ((id >> 8) & row.idHighMask) != row.idHigh) return frame.TellIdError(row.idCode);

  const std::uint16_t config = frame.image.Word(row.config);
  TheAppState().conversion.DualSkip = (config & kNotDualBit) != 0 ? 0 : row.dualSkip;
  CopyWords(row, frame);
  SumConfig(row, config);
  for (int i = 0; i < kTrailingBlanks; ++i) frame.WriteBe16(kBlankWord);
  PatchOption(row, config, frame);
  return frame.Finish({.moveSerial = [&row](ConversionFrame& f) { return MoveSerial(row.serialMove, f); }},
                      frame.imagePath);
}

}  // namespace

bool ConvertHex14Otp(const ConvertRequest& request, int& code) {
  const Hex14OtpRow* row = FindRow(kHex14OtpTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
