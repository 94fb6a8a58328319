#include "options/tin_file.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "options/smart_option.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/hex_digits.h"
#include "platform/text.h"
#include "shell/ground/messages.h"

namespace pyxis {

namespace {

constexpr std::size_t kLineLimit = 255;
static_assert(kLineLimit < sizeof SmartOptionRow::Items);
constexpr std::size_t kShortestLine = 3;  // line end included
constexpr long kLargestFile = 1 << 20;    // no option list comes near it
constexpr char kBlanks[] = " \t";

struct Line {
  std::string_view text;  // without the line end
  bool ended;
  std::size_t Length() const { return text.size() + (ended ? 1 : 0); }
};

// Reads a text line by line. A line that is too long is cut, so that the next one stays the next row; so is one that
// holds a zero byte.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  std::optional<Line> Next() {
    if (rest_.empty()) return std::nullopt;
    const std::size_t end = rest_.find('\n');
    const bool ended = end != std::string_view::npos;
    std::string_view text = rest_.substr(0, end);
    rest_.remove_prefix(ended ? end + 1 : rest_.size());
    if (ended && text.ends_with('\r')) text.remove_suffix(1);
    return Line{text.substr(0, std::min(kLineLimit, text.find('\0'))), ended};
  }

  // The next lines are those behind the first line that holds the header.
  bool GoBehind(std::string_view header) {
    while (const auto line = Next())
      if (line->text.find(header) != std::string_view::npos) return true;
    return false;
  }

 private:
  std::string_view rest_;
};

enum class PointEnds { No, Yes };  // whether a line that starts with "." ends the section

// The data lines of a section, as many as there can be rows; nothing when the section isn't there.
std::optional<std::vector<std::string_view>> DataLines(std::string_view file, std::string_view header,
                                                       PointEnds point = PointEnds::No) {
  LineReader reader(file);
  if (!reader.GoBehind(header)) return std::nullopt;
  std::vector<std::string_view> lines;
  while (lines.size() < kSmartOptionRows) {
    const auto line = reader.Next();
    if (!line) break;
    const std::string_view text = line->text;
    if (text.starts_with(';') || text.starts_with('*')) continue;
    if (point == PointEnds::Yes && text.starts_with('.')) break;
    if (line->Length() < kShortestLine) continue;
    if (text.starts_with('[') && text.find(']') != std::string_view::npos) break;
    lines.push_back(text);
  }
  return lines;
}

void TakeCaptions(const std::vector<std::string_view>& lines, SmartOptionBuffer& buffer) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    SmartOptionRow& row = buffer[i];
    const std::string number = lines.size() > 1 ? Printf("%02zu. ", i + 1) : "";
    const std::string caption = number + std::string(lines[i]);
    const std::size_t length = std::min(caption.size(), sizeof row.Label);
    std::memcpy(row.Label, caption.data(), length);
    row.LabelLength = static_cast<std::uint32_t>(length);
  }
  buffer[lines.size()].Label[0] = '\0';
}

void TakeItems(std::string_view file) {
  const auto lines = DataLines(file, "[ITEM]");
  if (!lines) return;
  const auto rows = CurrentRows();
  for (std::size_t i = 0; i < std::min(rows.size(), lines->size()); ++i) {
    const std::string_view line = (*lines)[i];
    std::memcpy(rows[i].Items, line.data(), line.size());
    rows[i].Items[line.size()] = '\0';
    rows[i].ItemsLength = static_cast<std::uint32_t>(line.size() + 1);
  }
}

// The first character belongs to slot 1. A digit 1 to 9 or a letter, which follows on, is an index; any other character
// leaves its slot alone.
void TakeDefaults(std::string_view file) {
  LineReader reader(file);
  if (!reader.GoBehind("[FIRST]")) return;
  const auto line = reader.Next();
  if (!line) return;
  const std::string text = ToUpper(line->text.substr(0, CurrentRows().size()));
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= '1' && c <= '9') OptionChoices()[i + 1] = c - '0';
    if (c >= 'A' && c <= 'Z') OptionChoices()[i + 1] = c - 'A' + 10;
  }
}

// Cuts the next token off the front; empty when there is none.
std::string_view NextToken(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view token = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(token.size());
  return token;
}

// Hexadecimal digits up to the first other character; no digit gives 0, a number that is too large the largest.
std::uint32_t HexNumber(std::string_view token) {
  token = WithoutHexPrefix(token);
  std::uint32_t value = 0;
  const auto result = std::from_chars(token.data(), token.data() + token.size(), value, 16);
  return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint32_t>::max() : value;
}

void TakeSwitches(std::string_view line, SmartOptionRow& row) {
  const std::string_view first = NextToken(line);
  if (first.empty() || EqualsNoCase(first, "SW")) return;
  // Never negative: a row with an address is told from one without by the sign.
  row.SwitchAddress = static_cast<std::int32_t>(std::min(HexNumber(first), std::uint32_t{0x7FFFFFFF}));
  for (std::uint32_t& value : row.SwitchValues) {
    const std::string_view token = NextToken(line);
    if (token.empty()) break;
    value = HexNumber(token);
  }
}

std::optional<std::string> ReadText(const std::string& path) {
  const File file = OpenFile(path, "rb");
  if (!file || FileLength(file.get()) > kLargestFile) return std::nullopt;
  const auto bytes = ReadStream(file.get());
  if (!bytes) return std::nullopt;
  return std::string(bytes->begin(), bytes->end());
}

}  // namespace

int ReadTinFile(const std::string& path) {
  SmartOptionBuffer* buffer = TheSmartOptionBuffer();
  if (buffer == nullptr) return 0;
  const auto file = ReadText(path);
  if (!file) {
    Diagnose(kOpenFailed, path.c_str());
    buffer->front().Label[0] = '\0';
    return 0;
  }
  const auto captions = DataLines(*file, "[MENU]", PointEnds::Yes);
  if (!captions) return 0;
  TakeCaptions(*captions, *buffer);
  TakeItems(*file);
  TakeDefaults(*file);
  const auto rows = CurrentRows();
  for (SmartOptionRow& row : rows) {
    row.ItemCount = static_cast<std::uint32_t>(AlternativesOf(row).size());
    row.SwitchAddress = -1;
  }
  if (const auto lines = DataLines(*file, "[DIPSWITCH]"))
    for (std::size_t i = 0; i < std::min(rows.size(), lines->size()); ++i) TakeSwitches((*lines)[i], rows[i]);
  return static_cast<int>(rows.size());
}

}  // namespace pyxis
