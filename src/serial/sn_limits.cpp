#include "serial/sn_limits.h"

#include <algorithm>
#include <array>

namespace pyxis {

namespace {

struct LimitRow {
  std::string_view chip;
  std::uint32_t limit;
};

// clang-format off
constexpr std::array<LimitRow, 125> kLimits{{
    {"QV8333", 0x3FB}, {"QV8334", 0x3FB}, {"QV8335", 0x3FB}, {"QV8370", 0x3FB}, {"QV8371", 0x3FB},
    {"QV8372", 0x3FB}, {"QV8502", 0x3FB}, {"QV8503_2XX", 0x3FB},
    {"QV8323", 0x3FC}, {"QV8324", 0x3FC}, {"QV8325", 0x3FC}, {"QV8326", 0x3FC}, {"QV8327", 0x3FC},
    {"QV8328", 0x3FC}, {"QV8329", 0x3FC}, {"QV8330", 0x3FC}, {"QV8331", 0x3FC}, {"QV8332", 0x3FC},
    {"QV8348", 0x3FC}, {"QV8349", 0x3FC}, {"QV8350", 0x3FC}, {"QV8351", 0x3FC}, {"QV8352", 0x3FC},
    {"QV8353", 0x3FC}, {"QV8354", 0x3FC}, {"QV8355", 0x3FC}, {"QV8356", 0x3FC}, {"QV8357", 0x3FC},
    {"QV8358", 0x3FC}, {"QV8359", 0x3FC}, {"QV8360", 0x3FC}, {"QV8361", 0x3FC}, {"QV8362", 0x3FC},
    {"QV8363", 0x3FC}, {"QV8364", 0x3FC}, {"QV8365", 0x3FC},
    {"QV8306", 0x400}, {"QV8307", 0x400}, {"QV8314", 0x400}, {"QV8315", 0x400}, {"QV8316", 0x400},
    {"QV8319", 0x400}, {"QVX01", 0x400}, {"QVX02", 0x400},
    {"QV8336", 0x7FC}, {"QV8337", 0x7FC}, {"QV8338", 0x7FC}, {"QV8339", 0x7FC}, {"QV8340", 0x7FC},
    {"QV8341", 0x7FC}, {"QV8342", 0x7FC}, {"QV8343", 0x7FC}, {"QV8366", 0x7FC}, {"QV8367", 0x7FC},
    {"QV8373", 0x7FC}, {"QV8374", 0x7FC}, {"QV8375", 0x7FC}, {"QV8503_5XX", 0x7FC}, {"QV8503_8XX", 0x7FC},
    {"QV8305", 0x800}, {"QV8308", 0x800}, {"QV8309", 0x800}, {"QV8310", 0x800}, {"QV8311", 0x800},
    {"QV8312", 0x800}, {"QV8317", 0x800}, {"QV8320", 0x800}, {"QV8321", 0x800}, {"QV8322", 0x800},
    {"QV8347", 0xFFB}, {"QV8378", 0xFFB},
    {"QV8344", 0xFFC}, {"QV8345", 0xFFC}, {"QV8346", 0xFFC}, {"QV8368", 0xFFC}, {"QV8376", 0xFFC},
    {"QV8377", 0xFFC}, {"QV8501", 0xFFC},
    {"QV8121", 0xFFE}, {"QV8122", 0xFFE}, {"QV8401", 0xFFE},
    {"QV4107", 0x1000}, {"QV8201", 0x1000}, {"QV8202", 0x1000}, {"QV8301", 0x1000}, {"QV8302", 0x1000},
    {"QV8313", 0x1000}, {"QV8318", 0x1000}, {"QVL11", 0x1000},
    {"QVL10", 0x1800},
    {"QV8106", 0x1FFE}, {"QV8107", 0x1FFE}, {"QV8108", 0x1FFE}, {"QV8109", 0x1FFE}, {"QV8111", 0x1FFE},
    {"QV8112", 0x1FFE}, {"QV8113", 0x1FFE}, {"QV8114", 0x1FFE}, {"QV8115", 0x1FFE}, {"QV8116", 0x1FFE},
    {"QV8117", 0x1FFE}, {"QV8118", 0x1FFE},
    {"QVL03", 0x1FFF},
    {"QV4201", 0x2000}, {"QV8303", 0x2000}, {"QV8304", 0x2000}, {"QVL01", 0x2000}, {"QVL02", 0x2000},
    {"QVL09", 0x2000}, {"QVL12", 0x2000}, {"QVX03", 0x2000},
    {"QVL07", 0x3000},
    {"QV8103", 0x3FFE}, {"QV8104", 0x3FFE}, {"QV8105", 0x3FFE}, {"QV8119", 0x3FFE}, {"QV8120", 0x3FFE},
    {"QV4204", 0x4000}, {"QV8110", 0x4000}, {"QVL05", 0x4000}, {"QVL13", 0x4000},
    {"QVL06", 0x6000},
    {"QV8101", 0x7FFE}, {"QV8102", 0x7FFE},
    {"QVL04", 0x8000},
}};
// clang-format on

constexpr bool ChipsAreUnique() {
  for (std::size_t i = 0; i < kLimits.size(); ++i)
    for (std::size_t k = i + 1; k < kLimits.size(); ++k)
      if (kLimits[i].chip == kLimits[k].chip) return false;
  return true;
}
static_assert(ChipsAreUnique());

constexpr LimitRow kFixed[] = {{"QV4204", 0x3FFD}, {"QV4201", 0x1FFD}};
constexpr std::string_view kWordChips[] = {"QV4107", "QV4201", "QV4204"};

template <typename Rows>
std::optional<std::uint32_t> Find(const Rows& rows, std::string_view chip) {
  for (const LimitRow& row : rows)
    if (row.chip == chip) return row.limit;
  return std::nullopt;
}

}  // namespace

std::uint32_t SnEndLimit(std::string_view chip) { return Find(kLimits, chip).value_or(0); }

std::optional<std::uint32_t> FixedSnAddress(std::string_view chip) { return Find(kFixed, chip); }

bool SnCountsWords(std::string_view chip) {
  return std::find(std::begin(kWordChips), std::end(kWordChips), chip) != std::end(kWordChips);
}

}  // namespace pyxis
