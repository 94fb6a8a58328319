// How Compare File makes its target of each kind of program file.
#pragma once

#include "catalogue/file_filters.h"
#include "catalogue/ic.h"

namespace pyxis {

constexpr CompareKind HexReadIn(ReadMode mode) {
  return {.filter = kHexFilter,
          .target = CompareKind::Target::IntelHex,
          .mode = mode,
          .header = 0,
          .configAt = 0,
          .configBytes = 0,
          .imageBytes = 0};
}
constexpr CompareKind CutFrom(const char* filter, std::size_t header) {
  return {.filter = filter,
          .target = CompareKind::Target::Cut,
          .mode = kReadBytes,
          .header = header,
          .configAt = 0,
          .configBytes = 0,
          .imageBytes = 0};
}
inline constexpr CompareKind kCompareHex = HexReadIn(kReadBlankWords);
inline constexpr CompareKind kCompareHexZeroWords = HexReadIn(kReadZeroWords);
inline constexpr CompareKind kCompareHexBytes = HexReadIn(kReadBytes);
inline constexpr CompareKind kCompareObj = CutFrom(kObjFilter, 32);
inline constexpr CompareKind kCompareEpm = CutFrom(kEpmFilter, 0);
inline constexpr CompareKind kCompareOtpByte{.filter = kOtpFilter,
                                             .target = CompareKind::Target::Cut,
                                             .mode = kReadBytes,
                                             .header = 32,
                                             .configAt = 8223,
                                             .configBytes = 1,
                                             .imageBytes = 0};
inline constexpr CompareKind kCompareOtpWords{.filter = kOtpFilter,
                                              .target = CompareKind::Target::Cut,
                                              .mode = kReadBytes,
                                              .header = 32,
                                              .configAt = 16414,
                                              .configBytes = 2,
                                              .imageBytes = 13024};
inline constexpr CompareKind kCompareVelmar{.filter = "Kestrel Velmar Files (*.Velmar)|*.Velmar||",
                                            .target = CompareKind::Target::LeftByLoadFile,
                                            .mode = kReadBytes,
                                            .header = 0,
                                            .configAt = 0,
                                            .configBytes = 0,
                                            .imageBytes = 0};

}  // namespace pyxis
