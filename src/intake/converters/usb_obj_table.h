// The USB ICs with .obj files.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

enum class WordCount { File, FileLessTwo, Fixed };  // all words of the file, all but two, a number
enum class OptionSource { None, Header, BehindWords };

inline constexpr std::uint32_t kAllWords = 0xFFFFFFFF;

struct UsbObjRow {
  std::uint32_t ChipCode;
  const char* name;  // of the template
  WordCount count;
  std::int32_t fixedWords;  // with WordCount::Fixed, else 0
  OptionSource optionSource;
  bool sumHeader;             // the header is summed first, and HeaderChecksum kept
  bool swapSum;               // the word fed is the word written with its bytes exchanged
  std::uint32_t summedWords;  // from the first on
  bool sumOption;             // the option byte is the configuration word, and summed last
};

// clang-format off
inline constexpr auto kUsbObjTable = std::to_array<UsbObjRow>({
    {.ChipCode = 0x1603, .name = "QVL01", .count = WordCount::File, .fixedWords = 0,
     .optionSource = OptionSource::None, .sumHeader = true, .swapSum = false, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipCode = 0x1604, .name = "QVL02", .count = WordCount::File, .fixedWords = 0,
     .optionSource = OptionSource::None, .sumHeader = true, .swapSum = false, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipCode = 0x1615, .name = "QVL03", .count = WordCount::File, .fixedWords = 0,
     .optionSource = OptionSource::None, .sumHeader = true, .swapSum = false, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipCode = 0x1633, .name = "QVL08", .count = WordCount::File, .fixedWords = 0,
     .optionSource = OptionSource::Header, .sumHeader = false, .swapSum = true, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipCode = 0x1629, .name = "QVX02", .count = WordCount::FileLessTwo, .fixedWords = 0,
     .optionSource = OptionSource::Header, .sumHeader = false, .swapSum = false, .summedWords = 1021,
     .sumOption = true},
    {.ChipCode = 0x1742, .name = "QV8369", .count = WordCount::Fixed, .fixedWords = 4096,
     .optionSource = OptionSource::BehindWords, .sumHeader = false, .swapSum = false, .summedWords = kAllWords,
     .sumOption = true},
});
// clang-format on

}  // namespace pyxis
