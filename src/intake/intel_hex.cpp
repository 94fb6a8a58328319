#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "intake/file_readers.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/text.h"

namespace pyxis {

std::uint32_t ForcedImageLength = 0;

namespace {

constexpr std::size_t kImageBufferSize = 65536;
constexpr std::size_t kLongestLine = 255;  // a longer line is taken in pieces

std::uint8_t ImageBuffer[kImageBufferSize + 2];

constexpr std::array<std::int8_t, 256> MakeDigits() {
  std::array<std::int8_t, 256> digits{};
  digits.fill(-1);
  for (int i = 0; i < 10; ++i) digits[static_cast<std::size_t>('0' + i)] = static_cast<std::int8_t>(i);
  for (int i = 0; i < 6; ++i)
    digits[static_cast<std::size_t>('A' + i)] = digits[static_cast<std::size_t>('a' + i)] =
        static_cast<std::int8_t>(10 + i);
  return digits;
}
constexpr std::array<std::int8_t, 256> kDigits = MakeDigits();

// Value of a hexadecimal digit, or -1.
constexpr int DigitValue(char c) { return kDigits[static_cast<unsigned char>(c)]; }

void FillImageBuffer(int mode) {
  if (mode == kReadBlankWords) {
    for (std::size_t i = 0; i < kImageBufferSize; i += 2) {
      ImageBuffer[i] = 0xFF;
      ImageBuffer[i + 1] = 0x3F;
    }
    return;
  }
  std::memset(ImageBuffer, mode == kReadZeroWords ? 0x00 : 0xFF, kImageBufferSize);
}

// Takes the next line off `rest`, at most kLongestLine characters, its line end included.
std::string_view TakeLine(std::string_view& rest) {
  const std::string_view window = rest.substr(0, kLongestLine);
  const std::size_t end = window.find('\n');
  const std::string_view line = end == std::string_view::npos ? window : window.substr(0, end + 1);
  rest.remove_prefix(line.size());
  return line;
}

std::uint32_t NumberAt(std::string_view line, std::size_t at, std::size_t digits) {
  return at < line.size() ? ParseHexDigits(line.substr(at, digits), static_cast<int>(digits)) : 0;
}

// A digit behind the end of the line, like any character that is no digit, counts as 0.
unsigned DataDigit(std::string_view line, std::size_t at) {
  const int value = at < line.size() ? DigitValue(line[at]) : 0;
  return value < 0 ? 0U : static_cast<unsigned>(value);
}

enum RecordType { kEndOfFile = 1, kSegmentAddress = 2, kStartAddress = 3 };

// Stores the records of `text` and returns the address behind the highest byte.
std::size_t StoreRecords(std::string_view text, std::size_t addressScale) {
  std::size_t highWater = 0;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.front() != ':') break;
    const std::uint32_t count = NumberAt(line, 1, 2);
    std::size_t address = NumberAt(line, 3, 4) * addressScale;
    const std::uint32_t type = NumberAt(line, 7, 2);
    if (type == kEndOfFile) break;
    if (type == kSegmentAddress || type == kStartAddress) continue;
    for (std::size_t i = 0; i < count && address < kImageBufferSize; ++i, ++address) {
      ImageBuffer[address] = static_cast<std::uint8_t>(DataDigit(line, 9 + 2 * i) << 4 | DataDigit(line, 10 + 2 * i));
      if (address + 1 > highWater) highWater = address + 1;
    }
  }
  return highWater;
}

}  // namespace

std::uint32_t ParseHexDigits(std::string_view text, int maxDigits) {
  if (maxDigits >= 0) text = text.substr(0, static_cast<std::size_t>(maxDigits));
  while (!text.empty() && (text.front() == '0' || text.front() == ' ')) text.remove_prefix(1);
  std::uint32_t value = 0;
  for (char c : text.substr(0, 8)) {
    const int digit = DigitValue(c);
    if (digit < 0) break;
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return value;
}

int ReadIntelHex(const std::string& sourcePath, const std::string& imagePath, int mode) {
  FillImageBuffer(mode);
  const auto source = ReadWholeFile(sourcePath);
  if (!source) {
    Diagnose("%s open failed !\n", sourcePath.c_str());
    return 1;
  }
  const std::string_view text(reinterpret_cast<const char*>(source->data()), source->size());
  if (text.empty() || text.front() != ':') {
    Diagnose("File %s Not Intel HEX format ???\n", sourcePath.c_str());
    return 1;
  }
  std::string_view rest = text;
  const std::string_view first = TakeLine(rest);
  const bool wordsPossible = mode == kReadBlankWords || mode == kReadZeroWords;
  const std::size_t addressScale = wordsPossible && first.size() > 2 && first[2] == '2' ? 2 : 1;
  const std::size_t highWater = StoreRecords(text, addressScale);
  const std::size_t length =
      ForcedImageLength != 0 ? std::min<std::size_t>(ForcedImageLength, kImageBufferSize) : highWater;
  return WriteWholeFile(imagePath, std::span(ImageBuffer, length)) ? 0 : 1;
}

}  // namespace pyxis
