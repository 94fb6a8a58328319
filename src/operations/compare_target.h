// The file that a comparison lays beside the writer's data area, made from a program file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "intake/file_readers.h"

namespace pyxis {

// What to do with a kind of program file.
struct CompareKind {
  enum class Target { IntelHex, Cut, LeftByLoadFile };
  const char* filter;  // of the file dialog
  Target target;
  ReadMode fill = kReadBlankWords;  // IntelHex
  // Cut: the configuration unit comes first, then the image behind the header. 0 image bytes: up to the file's end.
  std::size_t header = 0, configAt = 0, configBytes = 0, imageBytes = 0;
};

const CompareKind& CompareKindOf(std::string_view chip);

// The path of the target: `chosen` up to its last point, ".bin".
std::string CompareTargetPath(const std::string& chosen);

// Makes the target. False, with the operator told, when `chosen` can't be read or the target can't be written in full; a
// target is never left in part. A file that would be its own target is refused, since it would lose its contents.
bool MakeCompareTarget(const CompareKind& kind, const std::string& chosen);

}  // namespace pyxis
