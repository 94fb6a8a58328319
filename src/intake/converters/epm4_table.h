// The 4-bit ICs with .epm files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace pyxis {

// The option words behind the image, which become ExtraWords: first some that aren't summed, then some that are.
struct Epm4Options {
  std::size_t offset;
  std::size_t notSummed, summed;
};
constexpr Epm4Options OptionsAt(std::size_t offset) { return {.offset = offset, .notSummed = 2, .summed = 13}; }
inline constexpr Epm4Options kNoOptions{.offset = 0, .notSummed = 0, .summed = 0};

// Bytes behind the image that belong to the data: first some that aren't summed, then some that are.
struct Epm4Tail {
  std::size_t notSummed, summed;
};
inline constexpr Epm4Tail kNoTail{.notSummed = 0, .summed = 0};

// What becomes of the first bytes of ExtraWords.
enum class ExtraPatch { None, ClearFirst, FromTemplate };
// How the image's protect byte is meant: or-ed with 2, bit 0 set is protected; or taken as it is, 1 is not protected.
enum class ProtectByte { BitSet, Plain };

// A byte that the IC's images must have at a place, by which they are told from those of its twin. Offset 0: none.
struct Epm4Key {
  std::size_t offset;
  std::uint8_t value;
};
inline constexpr Epm4Key kNoKey{.offset = 0, .value = 0};

struct Epm4Row {
  const char* ChipName;
  std::size_t imageBytes;
  std::size_t protectOffset;
  Epm4Options options;
  bool serial;  // the IC takes serial numbers
  Epm4Tail tail;
  ProtectByte protect;
  ExtraPatch extra;
  std::size_t packageLength;  // zero-filled up to it; 0: as it comes out
  Epm4Key key;
  const char* twin;  // the IC that comes under this one's code as well, so that the selection tells which; null: none
};

// clang-format off
inline constexpr auto kEpm4Table = std::to_array<Epm4Row>({
    {.ChipName = "QV4301", .imageBytes = 49152, .protectOffset = 0x10002,
     .options = OptionsAt(0x10000), .serial = false, .tail = kNoTail, .protect = ProtectByte::BitSet,
     .extra = ExtraPatch::FromTemplate, .packageLength = 0, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4206", .imageBytes = 65536, .protectOffset = 0x10002,
     .options = OptionsAt(0x10000), .serial = false, .tail = kNoTail, .protect = ProtectByte::BitSet,
     .extra = ExtraPatch::FromTemplate, .packageLength = 256, .key = kNoKey, .twin = "QV4207"},
    {.ChipName = "QV4207", .imageBytes = 65536, .protectOffset = 0x10002,
     .options = OptionsAt(0x10000), .serial = false, .tail = kNoTail, .protect = ProtectByte::BitSet,
     .extra = ExtraPatch::FromTemplate, .packageLength = 256, .key = {.offset = 65598, .value = 1},
     .twin = "QV4206"},
    {.ChipName = "QV4205", .imageBytes = 49152, .protectOffset = 0x10002,
     .options = OptionsAt(0x10000), .serial = false, .tail = kNoTail, .protect = ProtectByte::BitSet,
     .extra = ExtraPatch::FromTemplate, .packageLength = 256, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4204", .imageBytes = 32768, .protectOffset = 32770, .options = OptionsAt(32768),
     .serial = true, .tail = kNoTail, .protect = ProtectByte::BitSet, .extra = ExtraPatch::FromTemplate,
     .packageLength = 256, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4203", .imageBytes = 32768, .protectOffset = 32770, .options = OptionsAt(32768),
     .serial = false, .tail = kNoTail, .protect = ProtectByte::BitSet, .extra = ExtraPatch::FromTemplate,
     .packageLength = 256, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4201", .imageBytes = 16384, .protectOffset = 16386, .options = OptionsAt(16384),
     .serial = true, .tail = kNoTail, .protect = ProtectByte::BitSet, .extra = ExtraPatch::FromTemplate,
     .packageLength = 256, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4107", .imageBytes = 8192, .protectOffset = 8192, .options = {.offset = 8192, .notSummed = 1, .summed = 13},
     .serial = true, .tail = kNoTail, .protect = ProtectByte::BitSet, .extra = ExtraPatch::ClearFirst,
     .packageLength = 256, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4104", .imageBytes = 8192, .protectOffset = 8194, .options = {.offset = 8192, .notSummed = 16, .summed = 0},
     .serial = true, .tail = kNoTail, .protect = ProtectByte::Plain, .extra = ExtraPatch::ClearFirst,
     .packageLength = 256, .key = kNoKey, .twin = nullptr},
    {.ChipName = "QV4101", .imageBytes = 32768, .protectOffset = 32770, .options = kNoOptions,
     .serial = false, .tail = {.notSummed = 4, .summed = 2044}, .protect = ProtectByte::BitSet, .extra = ExtraPatch::None,
     .packageLength = 256, .key = kNoKey, .twin = nullptr},
});
// clang-format on

}  // namespace pyxis
