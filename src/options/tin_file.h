// The text files that name an IC's options: tin/<chip>.tin in the program folder. docs/file-formats.md tells the
// grammar.
#pragma once

#include <string>

namespace pyxis {

// Fills the table of rows and, from the section [FIRST], OptionChoices. Returns the row count. 0 also for a file that
// can't be read, which leaves the table without rows, for one without [MENU], which leaves all as it was, and when
// there is no table. What goes beyond the table's limits is cut: rows, captions, switch values, lines over 255 bytes.
int ReadTinFile(const std::string& path);

}  // namespace pyxis
