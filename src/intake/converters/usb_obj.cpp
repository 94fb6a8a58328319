#include <array>

#include "intake/converters/families.h"
#include "intake/converters/frame.h"
#include "intake/converters/hex14.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::int32_t kHeader = 32;     // bytes
constexpr std::size_t kOptionByte = 16;  // offset in the header
constexpr std::uint8_t kOptionBits = 0x6F;
constexpr std::uint32_t kAllWords = 0xFFFFFFFF;

enum class WordCount { File, FileLessTwo, Fixed };  // all words of the file, all but two, a number
enum class OptionSource { None, Header, BehindWords };

struct UsbObjRow {
  std::uint32_t ChipCode;
  const char* name;
  WordCount count;
  std::int32_t fixedWords;
  bool sumHeader;             // the header is summed first, and HeaderChecksum kept
  bool swapSum;               // the word fed is the word written with its bytes exchanged
  std::uint32_t summedWords;  // from the first on
  OptionSource optionSource;
  bool sumOption;  // the option byte is the configuration word, and summed last
};

// clang-format off
constexpr std::array<UsbObjRow, 6> kTable{{
    // code   name     count                  fixed header swap  summed     option                     sumOption
    {0x1603, "QVL01",  WordCount::File,        0,    true,  false, kAllWords, OptionSource::None,        false},
    {0x1604, "QVL02",  WordCount::File,        0,    true,  false, kAllWords, OptionSource::None,        false},
    {0x1615, "QVL03",  WordCount::File,        0,    true,  false, kAllWords, OptionSource::None,        false},
    {0x1633, "QVL08",  WordCount::File,        0,    false, true,  kAllWords, OptionSource::Header,      false},
    {0x1629, "QVX02",  WordCount::FileLessTwo, 0,    false, false, 1021,      OptionSource::Header,      true},
    {0x1742, "QV8369", WordCount::Fixed,       4096, false, false, kAllWords, OptionSource::BehindWords, true},
}};
// clang-format on
static_assert(KeysAreUnique(kTable));

std::int32_t WordsOf(const UsbObjRow& row, std::int32_t length) {
  switch (row.count) {
    case WordCount::File:
      return (length - kHeader) / 2;
    case WordCount::FileLessTwo:
      return (length - kHeader) / 2 - 2;
    case WordCount::Fixed:
      break;
  }
  return row.fixedWords;
}

// ImageLength; the ICs with an option byte in the header count a half word at the end as a whole one.
std::int32_t ImageLengthOf(const UsbObjRow& row, std::int32_t length) {
  if (row.optionSource != OptionSource::Header) return WordsOf(row, length);
  const std::int32_t words = (length + (length & 1) - kHeader) / 2;
  return row.count == WordCount::FileLessTwo ? words - 3 : words;
}

std::uint16_t Swapped(std::uint16_t word) { return static_cast<std::uint16_t>(word << 8 | word >> 8); }

int Convert(const UsbObjRow& row, const ConvertRequest& request) {
  AppState& app = TheAppState();
  ConversionFrame frame(request, request.Path);
  if (int code = frame.OpenSerialFile(); code != 0) return code;
  if (int code = frame.OpenProgramFile(); code != 0) return code;
  if (int code = frame.OpenPackages(row.name); code != 0) return code;

  const Image& image = frame.image;
  const auto length = static_cast<std::int32_t>(image.Length());
  std::uint16_t headerChecksum = 0xFFFF;
  if (row.sumHeader) {
    for (std::size_t i = 0; i < kHeader / 2; ++i) ConversionFrame::Sum(image.Word(i));
    headerChecksum = app.conversion.ImageChecksum;
  }
  const std::int32_t words = WordsOf(row, length);
  for (std::int32_t i = 0; i < words; ++i) {
    const std::uint16_t word = image.Le16(static_cast<std::size_t>(kHeader + 2 * i));
    frame.WriteBe16(word);
    if (static_cast<std::uint32_t>(i) < row.summedWords) ConversionFrame::Sum(row.swapSum ? Swapped(word) : word);
  }
  const std::size_t optionAt =
      row.optionSource == OptionSource::Header ? kOptionByte : static_cast<std::size_t>(kHeader + 2 * words);
  const std::uint8_t optionByte = image.Byte(optionAt) & kOptionBits;
  if (row.sumOption) {
    app.conversion.SystemConfigWord = optionByte;
    ConversionFrame::Sum(optionByte | 1);
    MaskChecksum();
  }

  OptionPackage& option = frame.option;
  option.Put(Field::ImageChecksum, app.conversion.ImageChecksum);
  option.Put(Field::UsedLength, static_cast<std::uint32_t>(words));
  option.Put(Field::ImageLength, static_cast<std::uint32_t>(ImageLengthOf(row, length)));
  if (row.optionSource != OptionSource::None)
    option.Put(Field::ConfigWord, row.sumOption ? optionByte : std::uint32_t{optionByte} << 8 | optionByte);
  option.Put(Field::DualStart, 0);
  return frame.Finish({.headerChecksum = headerChecksum}, frame.path);
}

}  // namespace

bool ConvertUsbObj(const ConvertRequest& request, int& code) {
  const UsbObjRow* row = FindRow(kTable, request.ChipCode);
  if (row != nullptr) code = Convert(*row, request);
  return row != nullptr;
}

}  // namespace pyxis
