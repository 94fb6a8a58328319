#include "operations/compare_target.h"

#include <algorithm>

#include "intake/converters/image.h"
#include "intake/file_readers.h"
#include "platform/files.h"
#include "platform/text.h"

namespace pyxis {

namespace {

using Target = CompareKind::Target;

Outcome CutTarget(const CompareKind& kind, const std::string& chosen, const std::string& target) {
  auto bytes = ReadWholeFile(chosen);
  if (!bytes) return Failed(Reason::NotReadable);
  const Image image(std::move(*bytes));
  const std::size_t toEnd = image.Length() - std::min(image.Length(), kind.header);
  const std::size_t imageBytes = kind.imageBytes != 0 ? kind.imageBytes : toEnd;
  std::vector<std::uint8_t> cut;
  cut.reserve(kind.configBytes + imageBytes);
  for (std::size_t i = 0; i < kind.configBytes; ++i) cut.push_back(image.Byte(kind.configAt + i));
  for (std::size_t i = 0; i < imageBytes; ++i) cut.push_back(image.Byte(kind.header + i));
  return WriteWholeFile(target, cut) ? kGood : Failed(Reason::NotWritable);
}

}  // namespace

std::string CompareTargetPath(const CompareKind& kind, const std::string& chosen) {
  const std::string target = chosen.substr(0, chosen.rfind('.')) + ".bin";
  if (kind.target != Target::LeftByLoadFile) return target;
  const std::size_t name = target.rfind(kPathSeparator) + 1;  // Load File makes names in lower case
  return target.substr(0, name) + ToLower(target.substr(name));
}

Outcome MakeCompareTarget(const CompareKind& kind, const std::string& chosen) {
  if (kind.target == Target::LeftByLoadFile) return kGood;
  const std::string target = CompareTargetPath(kind, chosen);
  if (ResolvePath(target) == ResolvePath(chosen)) return Refused(Reason::OwnTarget);
  if (kind.target == Target::Cut) return CutTarget(kind, chosen, target);
  return MakeHexImage(chosen, target, kind.mode);
}

}  // namespace pyxis
