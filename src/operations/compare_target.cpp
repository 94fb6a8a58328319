#include "operations/compare_target.h"

#include <algorithm>

#include "intake/converters/image.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"

namespace pyxis {

namespace {

using Target = CompareKind::Target;

constexpr char kHexFilter[] = "Kestrel Hex Files (*.hex)|*.hex||";
constexpr char kOtpFilter[] = "Kestrel Otp Files (*.otp)|*.otp||";

constexpr CompareKind kHexBlankWords{kHexFilter, Target::IntelHex, kReadBlankWords};
constexpr CompareKind kHexZeroWords{kHexFilter, Target::IntelHex, kReadZeroWords};
constexpr CompareKind kHexBytes{kHexFilter, Target::IntelHex, kReadBytes};
constexpr CompareKind kVelmar{"Kestrel Velmar Files (*.Velmar)|*.Velmar||", Target::LeftByLoadFile};
constexpr CompareKind kObj{.filter = "Kestrel Obj Files (*.obj)|*.obj||", .target = Target::Cut, .header = 32};
constexpr CompareKind kEpm{.filter = "Kestrel Epm Files (*.epm)|*.epm||", .target = Target::Cut};
constexpr CompareKind kOtpByte{
    .filter = kOtpFilter, .target = Target::Cut, .header = 32, .configAt = 8223, .configBytes = 1};
constexpr CompareKind kOtpWords{.filter = kOtpFilter,
                                .target = Target::Cut,
                                .header = 32,
                                .configAt = 16414,
                                .configBytes = 2,
                                .imageBytes = 13024};

struct CompareRow {
  std::string_view chip;
  const CompareKind& kind;
};
constexpr CompareRow kRows[] = {
    {"QV8103", kVelmar},   {"QV8104", kVelmar},   {"QV8105", kVelmar},  {"QV8111", kVelmar}, {"QV8113", kVelmar},
    {"QV8115", kVelmar},   {"QV8117", kVelmar},   {"QV8119", kVelmar},  {"QV8120", kVelmar}, {"QV8121", kVelmar},
    {"QV8122", kVelmar},   {"QV8123", kVelmar},   {"QV8401", kVelmar},  {"QVL01", kObj},     {"QVL02", kObj},
    {"QVL03", kObj},       {"QV4103", kOtpWords}, {"QV4106", kOtpWords}, {"QV4105", kOtpByte}, {"QV4101", kEpm},
    {"QV4107", kEpm},      {"QV4201", kEpm},      {"QV4203", kEpm},     {"QV4204", kEpm},    {"QV4205", kEpm},
    {"QV4206", kEpm},      {"QV4207", kEpm},      {"QVL04", kHexBytes}, {"QVL05", kHexBytes}, {"QVL06", kHexBytes},
    {"QVL13", kHexBytes},  {"QV8201", kHexZeroWords},
};

bool Refuse(const char* format, const std::string& path) {
  TheMachine().op->Tell(Printf(format, path.c_str()), kPlainCaption);
  return false;
}

bool TellUnwritten(const std::string& target) { return Refuse("%s write file error\n", target); }

// The reader's own messages go to standard output, which a window program hasn't got.
bool TellReaderFailure(const std::string& chosen, const std::string& target) {
  const File file = OpenFile(chosen, "rb");
  if (!file) return Refuse("%s open failed !\n", chosen);
  if (std::fgetc(file.get()) != ':') return Refuse("File %s Not Intel HEX format ???\n", chosen);
  return TellUnwritten(target);
}

bool CutTarget(const CompareKind& kind, const std::string& chosen, const std::string& target) {
  auto bytes = ReadWholeFile(chosen);
  if (!bytes) return Refuse("Open Fail ! (%s)", chosen);
  const Image image(std::move(*bytes));
  const std::size_t toEnd = image.Length() - std::min(image.Length(), kind.header);
  const std::size_t imageBytes = kind.imageBytes != 0 ? kind.imageBytes : toEnd;
  std::vector<std::uint8_t> cut;
  cut.reserve(kind.configBytes + imageBytes);
  for (std::size_t i = 0; i < kind.configBytes; ++i) cut.push_back(image.Byte(kind.configAt + i));
  for (std::size_t i = 0; i < imageBytes; ++i) cut.push_back(image.Byte(kind.header + i));
  return WriteWholeFile(target, cut) || TellUnwritten(target);
}

}  // namespace

const CompareKind& CompareKindOf(std::string_view chip) {
  for (const CompareRow& row : kRows)
    if (row.chip == chip) return row.kind;
  return kHexBlankWords;
}

std::string CompareTargetPath(const std::string& chosen) { return chosen.substr(0, chosen.rfind('.')) + ".bin"; }

bool MakeCompareTarget(const CompareKind& kind, const std::string& chosen) {
  if (kind.target == Target::LeftByLoadFile) return true;
  const std::string target = CompareTargetPath(chosen);
  if (ResolvePath(target) == ResolvePath(chosen)) return TellUnwritten(target);
  if (kind.target == Target::Cut) return CutTarget(kind, chosen, target);
  return ReadIntelHex(chosen, target, kind.fill) == 0 || TellReaderFailure(chosen, target);
}

}  // namespace pyxis
