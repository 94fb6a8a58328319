#include <algorithm>
#include <cstring>
#include <string_view>

#include "intake/file_readers.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/hex_digits.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

constexpr std::size_t kImageBufferSize = 65536;

std::uint8_t ImageBuffer[kImageBufferSize + 2];

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

// Takes the next line off `rest`, without its line end.
std::string_view TakeLine(std::string_view& rest) {
  const auto end = std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\n' || c == '\r'; });
  const auto length = static_cast<std::size_t>(end - rest.begin());
  const std::string_view line = rest.substr(0, length);
  rest.remove_prefix(length);
  const std::size_t feed = rest.find_first_not_of('\r');
  const bool ended = feed != std::string_view::npos && rest[feed] == '\n';
  rest.remove_prefix(ended ? feed + 1 : std::min<std::size_t>(rest.size(), 1));
  return line;
}

std::uint32_t NumberAt(std::string_view line, std::size_t at, std::size_t digits) {
  return at < line.size() ? ParseHexDigits(line.substr(at), static_cast<int>(digits)) : 0;
}

// A digit behind the end of the line, like any character that is no digit, counts as 0.
unsigned DataDigit(std::string_view line, std::size_t at) {
  const int value = at < line.size() ? HexDigitValue(line[at]) : 0;
  return value < 0 ? 0U : static_cast<unsigned>(value);
}

enum RecordType { kEndOfFile = 1, kSegmentAddress = 2, kStartAddress = 3 };

// Stores the records of `text` and returns the address behind the highest byte.
std::size_t StoreRecords(std::string_view text, std::size_t addressScale) {
  std::size_t highWater = 0;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (!line.starts_with(':')) break;
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

Outcome MakeHexImage(const std::string& sourcePath, const std::string& imagePath, int mode,
                     std::uint32_t forcedImageLength) {
  FillImageBuffer(mode);
  const auto source = ReadWholeFile(sourcePath);
  if (!source) {
    Diagnose(kOpenFailed, sourcePath.c_str());
    return Failed(Reason::NotReadable);
  }
  const std::string_view text(reinterpret_cast<const char*>(source->data()), source->size());
  if (!text.starts_with(':')) {
    Diagnose(kNotIntelHex, sourcePath.c_str());
    return Failed(Reason::NotIntelHex);
  }
  std::string_view rest = text;
  const std::string_view first = TakeLine(rest);
  const bool wordsPossible = mode == kReadBlankWords || mode == kReadZeroWords;
  const std::size_t addressScale = wordsPossible && first.size() > 2 && first[2] == '2' ? 2 : 1;
  const std::size_t highWater = StoreRecords(text, addressScale);
  const std::size_t length =
      forcedImageLength != 0 ? std::min<std::size_t>(forcedImageLength, kImageBufferSize) : highWater;
  return WriteWholeFile(imagePath, std::span(ImageBuffer, length)) ? kGood : Failed(Reason::NotWritable);
}

int ReadIntelHex(const std::string& sourcePath, const std::string& imagePath, int mode,
                 std::uint32_t forcedImageLength) {
  return MakeHexImage(sourcePath, imagePath, mode, forcedImageLength).Good() ? 0 : 1;
}

}  // namespace pyxis
