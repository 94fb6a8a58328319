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
  OptionSource optionSource;
  // What few ICs do otherwise.
  std::int32_t fixedWords = 0;            // with WordCount::Fixed
  bool sumHeader = false;                 // the header is summed first, and HeaderChecksum kept
  bool swapSum = false;                   // the word fed is the word written with its bytes exchanged
  std::uint32_t summedWords = kAllWords;  // from the first on
  bool sumOption = false;                 // the option byte is the configuration word, and summed last
};

// clang-format off
inline constexpr auto kUsbObjTable = std::to_array<UsbObjRow>({
    {.ChipCode = 0x1603, .name = "QVL01", .count = WordCount::File, .optionSource = OptionSource::None, .sumHeader = true},
    {.ChipCode = 0x1604, .name = "QVL02", .count = WordCount::File, .optionSource = OptionSource::None, .sumHeader = true},
    {.ChipCode = 0x1615, .name = "QVL03", .count = WordCount::File, .optionSource = OptionSource::None, .sumHeader = true},
    {.ChipCode = 0x1633, .name = "QVL08", .count = WordCount::File, .optionSource = OptionSource::Header, .swapSum = true},
    {.ChipCode = 0x1629, .name = "QVX02", .count = WordCount::FileLessTwo, .optionSource = OptionSource::Header, .summedWords = 1021, .sumOption = true},
    {.ChipCode = 0x1742, .name = "QV8369", .count = WordCount::Fixed, .optionSource = OptionSource::BehindWords, .fixedWords = 4096, .sumOption = true},
});
// clang-format on

}  // namespace pyxis
