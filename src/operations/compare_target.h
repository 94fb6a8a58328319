// The file that a comparison lays beside the writer's data area, made from a program file.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/ic.h"

namespace pyxis {

// A name that no IC has stands for Intel HEX.
const CompareKind& CompareKindOf(std::string_view chip);

// The path of the target: `chosen` up to its last point, ".bin"; of one that Load File has left, with the name in lower
// case.
std::string CompareTargetPath(const CompareKind& kind, const std::string& chosen);

// Makes the target. False, with the operator told, when `chosen` can't be read or the target can't be written in full;
// a target is never left in part. A file that would be its own target is refused, since it would lose its contents.
bool MakeCompareTarget(const CompareKind& kind, const std::string& chosen);

}  // namespace pyxis
