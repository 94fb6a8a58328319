// The file that the hex view shows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pyxis {

struct ShownFile {
  std::vector<std::uint8_t> Data;  // the view's own copy
  bool blanked = false;            // an empty path was shown: the area is white, Data stays
};

ShownFile& TheShownFile();

// Empty path: the area is painted white, the data stays. Otherwise takes the whole file; a file that can't be opened
// changes nothing.
void ShowFile(const std::string& path);

}  // namespace pyxis
