#include <algorithm>
#include <array>

#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"
#include "intake/converters/hex14.h"
#include "platform/byte_order.h"

namespace pyxis {

namespace {

constexpr std::uint16_t kProtectBit = 0x0800;  // of the configuration word: 0 means protected
constexpr std::uint16_t kDualSumBits = 0x3000;
constexpr std::uint8_t kFlagSet = 16;
constexpr int kTrailingBlanks = 4;  // in the place of the configuration word and what follows it

void CopyWords(const Hex14OtpRow& row, ConversionFrame& frame) {
  for (std::uint32_t i = 1; i <= row.memory.length; ++i) {
    const std::uint16_t word = frame.image.Word(i - 1);
    frame.WriteBe16(word);
    if (i <= frame.state.DualSkip) continue;
    frame.Sum(word);
    frame.KeepPartialChecksum(i);
    if (row.used == UsedWords::Tracked && word != kBlankWord) frame.state.UsedLength = i;
  }
  for (std::uint32_t i = 0; i < row.memory.copied; ++i) frame.WriteBe16(frame.image.Word(row.memory.length + i));
  for (std::uint32_t i = 0; i < row.memory.blanks; ++i) frame.WriteBe16(kBlankWord);
}

void SumConfig(const Hex14OtpRow& row, std::uint16_t config, ConversionFrame& frame) {
  frame.state.SystemConfigWord = config;
  frame.Sum(config | row.sumMask);
  frame.MaskChecksum();
  if (frame.state.DualSkip != 0 && row.memory.dual.sumBits) frame.state.ImageChecksum |= kDualSumBits;
}

void PatchOption(const Hex14OtpRow& row, std::uint16_t config, ConversionFrame& frame) {
  const bool dual = frame.state.DualSkip != 0;
  const unsigned output = (config & ~unsigned{row.outputClear}) | row.outputSet;
  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::UsedLength, row.used == UsedWords::Tracked ? frame.state.UsedLength : row.memory.length);
  option.Put(Field::ImageLength, row.memory.length);
  option.Put(Field::ConfigWord, output & kWordMask);
  option.Put(Field::PartialChecksum, frame.state.PartialChecksum);
  if (row.protectByte && (config & kProtectBit) == 0) option.PutAt(Field::ProtectFlags.offset, kFlagSet);
  option.Put(Field::DualStart, frame.state.DualSkip);
  option.Put(Field::ProgramParameter, std::uint32_t{row.memory.byte72} << 8 | (dual ? row.memory.dual.byte73 : 0xFFU));
  if (row.isp == IspByte::ExhvIsp) option.Put(Field::IspFlags, frame.request.ExhvIsp ? kExhvIspBit : 0);
  if (row.isp == IspByte::DualMode) option.Put(Field::IspFlags, dual ? kFlagSet : 0);
}

// Moves the serial range of a job in dual mode, in serial.txt itself: a second conversion moves it again.
ConverterCode MoveSerial(const SerialMove& move, ConversionFrame& frame) {
  if (frame.state.DualSkip == 0) return kConverted;
  const Image before(frame.serial);
  std::array<std::uint8_t, kSerialRange.width> range;
  for (std::size_t i = 0; i < range.size(); ++i) range[i] = before.Byte(kSerialRange.offset + i);
  for (const std::size_t high : {0U, 2U}) range[high] = static_cast<std::uint8_t>(range[high] + move.shift);
  if (LoadBe16(&range[2]) >= move.limit) {
    frame.request.Tell(move.message);
    return kSourceFailed;
  }
  const std::size_t end = kSerialRange.offset + range.size();
  if (frame.serial.size() < end) frame.serial.resize(end, 0);
  std::ranges::copy(range, frame.serial.begin() + kSerialRange.offset);
  frame.serialMoved = true;
  return kConverted;
}

}  // namespace

ConversionResults Convert(const Hex14OtpRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request);
  if (const auto code = frame.OpenHexJob(kReadBlankWords); code != kConverted) return {code};

  const std::uint16_t id = frame.image.Word(row.memory.idWord);
  if ((id & 0xFF) != row.idLow || ((id >> 8) & row.idHighMask) != row.idHigh) return {frame.TellIdError(row.idCode)};

  const std::uint16_t config = frame.image.Word(row.memory.config);
  frame.state.DualSkip = (config & kNotDualBit) != 0 ? 0 : row.memory.dual.skip;
  CopyWords(row, frame);
  SumConfig(row, config, frame);
  for (int i = 0; i < kTrailingBlanks; ++i) frame.WriteBe16(kBlankWord);
  PatchOption(row, config, frame);
  return frame.Finish({.moveSerial = [&row](ConversionFrame& f) { return MoveSerial(row.memory.dual.serialMove, f); }},
                      ConversionFrame::Loaded::Image);
}

}  // namespace pyxis
