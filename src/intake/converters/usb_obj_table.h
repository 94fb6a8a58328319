// The USB ICs with .obj files.
#pragma once

#include <array>
#include <cstdint>

namespace pyxis {

enum class WordCount { OfFile, OfFileLessTwo, Fixed };  // all words of the file, all but two, a number
enum class OptionSource { None, Header, BehindWords };

inline constexpr std::uint32_t kAllWords = 0xFFFFFFFF;

struct UsbObjRow {
  const char* ChipName;
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
    {.ChipName = "QVL01", .count = WordCount::OfFile, .fixedWords = 0,
     .optionSource = OptionSource::None, .sumHeader = true, .swapSum = false, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipName = "QVL02", .count = WordCount::OfFile, .fixedWords = 0,
     .optionSource = OptionSource::None, .sumHeader = true, .swapSum = false, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipName = "QVL03", .count = WordCount::OfFile, .fixedWords = 0,
     .optionSource = OptionSource::None, .sumHeader = true, .swapSum = false, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipName = "QVL08", .count = WordCount::OfFile, .fixedWords = 0,
     .optionSource = OptionSource::Header, .sumHeader = false, .swapSum = true, .summedWords = kAllWords,
     .sumOption = false},
    {.ChipName = "QVX02", .count = WordCount::OfFileLessTwo, .fixedWords = 0,
     .optionSource = OptionSource::Header, .sumHeader = false, .swapSum = false, .summedWords = 1021,
     .sumOption = true},
    {.ChipName = "QV8369", .count = WordCount::Fixed, .fixedWords = 4096,
     .optionSource = OptionSource::BehindWords, .sumHeader = false, .swapSum = false, .summedWords = kAllWords,
     .sumOption = true},
});
// clang-format on

}  // namespace pyxis
