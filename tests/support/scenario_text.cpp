#include "support/scenario_text.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace pyxis::test {

namespace {

// A cell "0..9" stands for a row of each of its numbers.
void AddRow(std::vector<Texts>& rows, const Texts& cells) {
  const auto range = std::find_if(cells.begin(), cells.end(), [](const std::string& cell) {
    return cell.find("..") > 0 && cell.find("..") != cell.npos && cell.find_first_not_of("0123456789.") == cell.npos;
  });
  if (range == cells.end()) return rows.push_back(cells);
  for (int n = Number(*range); n <= Number(range->substr(range->find("..") + 2)); ++n) {
    rows.push_back(cells);
    rows.back()[static_cast<std::size_t>(range - cells.begin())] = std::to_string(n);
  }
}

}  // namespace

ScenarioTexts ReadScenarios(const std::string& file) {
  ScenarioTexts all;
  std::ifstream in(PYXIS_TEST_DATA_DIR "/events/" + file + ".txt");
  EXPECT_TRUE(in) << file;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line.starts_with("== ")) {
      all.push_back({line.substr(3), {}});
    } else if (line.starts_with("| ")) {
      AddRow(all.back().second.rows, Split(line.substr(2), "|"));
    } else {
      all.back().second.lines.push_back(line);
    }
  }
  for (auto& [name, section] : all)
    if (section.rows.empty()) section.rows.emplace_back();
  return all;
}

Texts Split(const std::string& text, const std::string& separator) {
  Texts parts;
  for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + separator.size()) {
    end = text.find(separator, at);
    const std::string part = text.substr(at, end - at);
    const std::size_t first = part.find_first_not_of(' ');
    parts.push_back(first == std::string::npos ? "" : part.substr(first, part.find_last_not_of(' ') + 1 - first));
  }
  return parts;
}

Texts Words(const std::string& text) {
  Texts words;
  std::istringstream in(text);
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

Texts Filled(Texts lines, const Texts& cells) {
  for (std::string& line : lines)
    for (std::size_t at = 0; (at = line.find('$', at)) != std::string::npos;) {
      const auto cell = static_cast<std::size_t>(line.at(at + 1) - '1');
      const std::string value = cell < cells.size() ? cells[cell] : "";
      line.replace(at, 2, value);
      at += value.size();
    }
  return lines;
}

std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t known =
        text[i] == '\\' && i + 1 < text.size() ? std::string("nrtsp").find(text[i + 1]) : std::string::npos;
    plain += known == std::string::npos ? text[i] : "\n\r\t |"[known];
    i += known == std::string::npos ? 0 : 1;
  }
  return plain;
}

int Number(const std::string& text) { return static_cast<int>(std::stoll(text, nullptr, 0)); }

Bytes BytesOf(const std::string& text) {
  Bytes bytes;
  for (const std::string& word : Words(text)) {
    const std::size_t star = word.rfind('*');
    const int times = star == std::string::npos ? 1 : Number(word.substr(star + 1));
    const std::string piece = word.substr(0, star);
    for (int i = 0; i < times; ++i) {
      if (piece.starts_with("ramp")) {
        const int at = i + (piece.size() > 5 ? Number(piece.substr(5)) : 0);
        bytes.push_back(static_cast<std::uint8_t>(at * 7 + at / 256));
      } else if (piece[0] == '"') {
        const std::string plain = Unescaped(piece.substr(1, piece.size() - 2));
        bytes.insert(bytes.end(), plain.begin(), plain.end());
      } else {
        for (std::size_t at = 0; at < piece.size(); at += 2)
          bytes.push_back(static_cast<std::uint8_t>(std::stoul(piece.substr(at, 2), nullptr, 16)));
      }
    }
  }
  return bytes;
}

void Overwrite(std::span<std::uint8_t> target, std::size_t at, const Bytes& bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) target[at + i] = bytes[i];
}

}  // namespace pyxis::test
