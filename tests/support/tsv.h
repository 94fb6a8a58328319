// Tables of tests/data: tab-separated, lines that begin with # are comments.
#pragma once

#include <fstream>
#include <sstream>

#include "support/bench.h"

namespace pyxis::test {

inline std::vector<Texts> ReadTsv(const std::string& name) {
  std::vector<Texts> rows;
  std::ifstream in(PYXIS_TEST_DATA_DIR "/" + name);
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream cells(line);
    for (rows.emplace_back(); std::getline(cells, line, '\t');) rows.back().push_back(line);
  }
  return rows;
}

// Compares cell by cell, and names row and column of a difference.
inline void ExpectCells(const std::string& row, const Texts& columns, const Texts& got, const Texts& wanted) {
  ASSERT_EQ(All(got.size(), wanted.size()), All(columns.size(), columns.size())) << row;
  for (std::size_t i = 0; i < columns.size(); ++i) EXPECT_EQ(got[i], wanted[i]) << row << ", " << columns[i];
}

}  // namespace pyxis::test
