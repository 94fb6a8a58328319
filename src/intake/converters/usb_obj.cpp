#include "intake/converters/dispatch.h"
#include "intake/converters/frame.h"

namespace pyxis {

namespace {

constexpr std::int32_t kObjHeader = 32;  // bytes
constexpr std::size_t kOptionByte = 16;  // offset in the header
constexpr std::uint8_t kOptionBits = 0x6F;

std::int32_t WordsOf(const UsbObjRow& row, std::int32_t length) {
  switch (row.count) {
    case WordCount::OfFile:
      return (length - kObjHeader) / 2;
    case WordCount::OfFileLessTwo:
      return (length - kObjHeader) / 2 - 2;
    case WordCount::Fixed:
      break;
  }
  return row.fixedWords;
}

// ImageLength; the ICs with an option byte in the header count a half word at the end as a whole one.
std::int32_t ImageLengthOf(const UsbObjRow& row, std::int32_t length) {
  if (row.optionSource != OptionSource::Header) return WordsOf(row, length);
  const std::int32_t words = (length + (length & 1) - kObjHeader) / 2;
  return row.count == WordCount::OfFileLessTwo ? words - 3 : words;
}

std::uint16_t Swapped(std::uint16_t word) { return static_cast<std::uint16_t>(word << 8 | word >> 8); }

}  // namespace

ConversionResults Convert(const UsbObjRow& row, const ConvertRequest& request) {
  ConversionFrame frame(request);
  if (const auto code = frame.OpenSerialFile(); code != kConverted) return {code};
  if (const auto code = frame.OpenProgramFile(); code != kConverted) return {code};
  if (const auto code = frame.OpenPackages(); code != kConverted) return {code};

  const Image& image = frame.image;
  const auto length = static_cast<std::int32_t>(image.Length());
  std::uint16_t headerChecksum = 0xFFFF;
  if (row.sumHeader) {
    for (std::size_t i = 0; i < kObjHeader / 2; ++i) frame.Sum(image.Word(i));
    headerChecksum = frame.state.ImageChecksum;
  }
  const std::int32_t words = WordsOf(row, length);
  for (std::int32_t i = 0; i < words; ++i) {
    const std::uint16_t word = image.Le16(static_cast<std::size_t>(kObjHeader + 2 * i));
    frame.WriteBe16(word);
    if (static_cast<std::uint32_t>(i) < row.summedWords) frame.Sum(row.swapSum ? Swapped(word) : word);
  }
  const std::size_t optionAt =
      row.optionSource == OptionSource::Header ? kOptionByte : static_cast<std::size_t>(kObjHeader + 2 * words);
  const std::uint8_t optionByte = image.Byte(optionAt) & kOptionBits;
  if (row.sumOption) {
    frame.state.SystemConfigWord = optionByte;
    frame.Sum(optionByte | 1);
    frame.MaskChecksum();
  }

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, frame.state.ImageChecksum);
  option.Put(Field::UsedLength, static_cast<std::uint32_t>(words));
  option.Put(Field::ImageLength, static_cast<std::uint32_t>(ImageLengthOf(row, length)));
  if (row.optionSource != OptionSource::None)
    option.Put(Field::ConfigWord, row.sumOption ? optionByte : std::uint32_t{optionByte} << 8 | optionByte);
  option.Put(Field::DualStart, 0);
  return frame.Finish({.headerChecksum = headerChecksum}, ConversionFrame::Loaded::ProgramFile);
}

}  // namespace pyxis
