// Cases and scripts of tests/data. A line "== name" begins a section; cells stand between tabs, several of which are
// one, and "-" is an empty cell. In a cell \n, \r, \t, \\ and \xHH are characters, and {300*a} is 300 times "a".
#pragma once

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "support/bench.h"

namespace pyxis::test {

inline std::string CellText(const std::string& cell) {
  std::string text;
  for (std::size_t i = 0; i < cell.size(); ++i) {
    if (cell[i] == '{' && cell.find('*', i) != std::string::npos) {
      const std::size_t star = cell.find('*', i), end = cell.find('}', star);
      for (int n = std::stoi(cell.substr(i + 1)); n > 0; --n) text += CellText(cell.substr(star + 1, end - star - 1));
      i = end;
    } else if (cell[i] != '\\' || ++i == cell.size()) {
      text += cell[i];
    } else if (cell[i] == 'x') {
      text += static_cast<char>(std::stoi(cell.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      text += cell[i] == 'n' ? '\n' : cell[i] == 'r' ? '\r' : cell[i] == 't' ? '\t' : cell[i];
    }
  }
  return text;
}

// The parts of a cell. Without `empty`, parts without a character are left out.
inline Texts Parts(const std::string& cell, char separator, bool empty = false) {
  Texts parts;
  std::istringstream in(cell);
  for (std::string part; std::getline(in, part, separator);)
    if (empty || !part.empty()) parts.push_back(part);
  return parts;
}

// The rows of a table without sections, cell by cell as they are; lines that begin with # are comments.
inline std::vector<Texts> ReadTsv(const std::string& name) {
  std::vector<Texts> rows;
  std::ifstream in(PYXIS_TEST_DATA_DIR "/" + name);
  for (std::string line; std::getline(in, line);)
    if (!line.empty() && line[0] != '#') rows.push_back(Parts(line, '\t', true));
  return rows;
}

// Compares cell by cell, and names row and column of a difference.
inline void ExpectCells(const std::string& row, const Texts& columns, const Texts& got, const Texts& wanted) {
  ASSERT_EQ(All(got.size(), wanted.size()), All(columns.size(), columns.size())) << row;
  for (std::size_t i = 0; i < columns.size(); ++i) EXPECT_EQ(got[i], wanted[i]) << row << ", " << columns[i];
}

struct Case {
  Texts cells;
  std::string where;
  // What isn't there is empty.
  std::string operator[](std::size_t cell) const { return cell < cells.size() ? cells[cell] : ""; }
  // Decimal, or hexadecimal with 0x.
  long Number(std::size_t cell) const { return std::strtol((*this)[cell].c_str(), nullptr, 0); }
  bool Yes(std::size_t cell) const { return (*this)[cell] == "yes"; }
};

inline std::vector<Case> Cases(const std::string& file, const std::string& section) {
  std::vector<Case> cases;
  std::ifstream in(PYXIS_TEST_DATA_DIR "/" + file);
  bool inside = false;
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    if (line.starts_with("== ")) inside = line.substr(3) == section;
    const std::size_t first = line.find_first_not_of(' ');
    if (!inside || line.starts_with("== ") || first == line.npos || line[first] == '#') continue;
    cases.push_back({{}, file + ":" + std::to_string(number)});
    for (const std::string& cell : Parts(line, '\t')) cases.back().cells.push_back(cell == "-" ? "" : CellText(cell));
  }
  EXPECT_FALSE(cases.empty()) << file << ", " << section;
  return cases;
}

// All sections of the file but those named, so that a new one can't be forgotten.
inline std::vector<std::string> SectionsBut(const std::string& file, const std::set<std::string>& others) {
  std::vector<std::string> sections;
  std::ifstream in(PYXIS_TEST_DATA_DIR "/" + file);
  for (std::string line; std::getline(in, line);)
    if (line.starts_with("== ") && !others.contains(line.substr(3))) sections.push_back(line.substr(3));
  return sections;
}

inline void ForEachCase(const std::string& file, const std::string& section,
                        const std::function<void(const Case&)>& check) {
  for (const Case& c : Cases(file, section)) {
    SCOPED_TRACE(c.where);
    check(c);
  }
}

// A script: a line an action with its words; behind "=>" what holds afterwards, as "name=value".
struct Script {
  std::map<std::string, std::function<void(const Case&)>> actions;  // the action's words begin at 1
  std::map<std::string, std::function<std::string()>> states;
  std::function<void()> after = [] {};  // each line

  void Run(const std::string& file, const std::string& section) const {
    ForEachCase(file, section, [this](const Case& line) {
      ASSERT_TRUE(actions.contains(line[0])) << line[0];
      const auto arrow = std::find(line.cells.begin(), line.cells.end(), "=>");
      actions.at(line[0])({{line.cells.begin(), arrow}, line.where});
      for (auto cell = arrow; cell != line.cells.end(); ++cell)
        if (cell != arrow) Check(*cell);
      after();
    });
  }

 private:
  void Check(const std::string& cell) const {
    const std::size_t at = cell.find('=');
    std::string wanted = cell.substr(at + 1);
    ASSERT_TRUE(at != std::string::npos && states.contains(cell.substr(0, at))) << cell;
    const std::string got = states.at(cell.substr(0, at))();
    const bool number = !got.empty() && got.find_first_not_of("0123456789") == got.npos;
    if (number && wanted.starts_with("0x")) wanted = std::to_string(std::stol(wanted, nullptr, 16));
    EXPECT_EQ(got, wanted) << cell;
  }
};

}  // namespace pyxis::test
