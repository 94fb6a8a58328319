// The file that a comparison lays beside the writer's data area, made from a program file.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/ic.h"
#include "shell/ground/outcome.h"

namespace pyxis {

// The path of the target: `chosen` up to its last point, ".bin"; of one that Load File has left, with the name in lower
// case.
std::string CompareTargetPath(const CompareKind& kind, const std::string& chosen);

// Makes the target; one is never left in part. Refused: OwnTarget, since such a file would lose its contents; failed:
// NotReadable and NotIntelHex, of `chosen`, and NotWritable.
Outcome MakeCompareTarget(const CompareKind& kind, const std::string& chosen);

}  // namespace pyxis
