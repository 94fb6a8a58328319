// The text of scenarios: sections, rows, escapes and bytes.
#pragma once

#include <map>

#include "support/bench.h"

namespace pyxis::test {

struct ScenarioText {
  std::vector<Texts> rows;  // of what stands for $1 to $9; one without cells when there is no table
  Texts lines;
};
// By name, in the order of the file; those whose names begin with @ are lists that others include.
using ScenarioTexts = std::vector<std::pair<std::string, ScenarioText>>;

ScenarioTexts ReadScenarios(const std::string& file);
Texts Split(const std::string& text, const std::string& separator);  // the parts without blanks around them
template <typename Lines>
std::string Joined(const Lines& lines, const std::string& separator) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : separator) + line;
  return text;
}
Texts Words(const std::string& text);
Texts Filled(Texts lines, const Texts& cells);   // $1 to $9
std::string Unescaped(const std::string& text);  // \n, \r, \t, \s for a blank, \p for |
int Number(const std::string& text);             // decimal, or hexadecimal behind 0x
Bytes BytesOf(const std::string& text);          // 01 FF 00*200 "text" ramp*40 ramp+32*8
void Overwrite(std::span<std::uint8_t> target, std::size_t at, const Bytes& bytes);

}  // namespace pyxis::test
