
#include <set>

#include "catalogue/chip_catalogue.h"
#include "pyxisfolder/folder.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Catalogue : public Bench {};

TEST_F(Catalogue, FindsRowsByLabel) {
  // clang-format off
  for (const auto& [label, found, wantedList, wantedPlace] : Table<const char*, int, int, int>{
           {"qv8329_16", 1, 10, 5}, {"QV8305", 0, -1, -1}, {"QV8368_24", 1, 10, 56}, {"QV4101", 1, 0, 0},
           {"QVL09_48", 1, 12, 0}, {"QVL09", 1, 7, 4}, {"QV8119_28_32_44", 1, 8, 13}, {"QV8329_", 0, -1, -1},
           {"", 0, -1, -1}}) {
    // clang-format on
    SCOPED_TRACE(label);
    int list = -1, place = -1;
    TheAppState().selection.ReadSizeBytes = 77;
    EXPECT_EQ(FindChip(label, list, place), found);
    EXPECT_EQ(All(list, place, TheAppState().selection.ReadSizeBytes == 77), All(wantedList, wantedPlace, found == 0));
  }
}

TEST_F(Catalogue, RowsThatDifferFromTheirIc) {
  // clang-format off
  for (const auto& [label, readSize, masks] : Table<const char*, std::uint32_t, std::array<std::uint32_t, 9>>{
           {"QV8329", 0x800, {0x2000, 0x1000, 0x800, 0x300, 0x80, 0x40}},
           {"QV8329_16", 0x800, {0x2000, 0x1000, 0xC00, 0x300, 0x80, 0x40}},
           {"QV8319", 0x820, {0x2000, 0xC00, 0x200, 0x80, 0x40}},
           {"QV8319_18", 0x820, {0x2000, 0xC00, 0x300, 0x80, 0x40}},
           {"QV8306", 0x820, {0x2000, 0x800, 0x80, 0x40}},
           {"QV8306_16", 0x1020, {0x2000, 0x800, 0x80, 0x40}},
           {"QV8307_16", 0x1020, {0x2000, 0x800, 0x80, 0x40}}}) {
    // clang-format on
    SCOPED_TRACE(label);
    int list = 0, place = 0;
    ASSERT_EQ(FindChip(label, list, place), 1);
    EXPECT_EQ(All(TheAppState().selection.ReadSizeBytes, TheAppState().selection.OptionMasks), All(readSize, masks));
  }
}

TEST_F(Catalogue, FirmwareImages) {
  TheAppState().program.AppDir = "/p/";
  // clang-format off
  for (const auto& [label, model, path, code] : Table<const char*, int, const char*, std::uint32_t>{
           {"QV4206", 1, "/p/firmware48/QV4207.nce", 0x1393}, {"QV4207", 1, "/p/firmware48/QV4207.nce", 0x1393},
           {"QV8336", 2, "/p/firmware49/QV8336.nce", 0x709}, {"QV8344", 2, "/p/firmware49/QV8344.nce", 0x2709},
           {"QVL01", 1, "/p/firmware48/all.nce", 0}}) {
    // clang-format on
    int list = 0, place = 0;
    ASSERT_EQ(FindChip(label, list, place), 1);
    const auto firmware = FirmwareFor(Row(list, place).ChipCode, Model{model});
    ASSERT_TRUE(firmware);
    EXPECT_EQ(All(firmware->path, firmware->FirmwareCode), All(path, code));
  }
  EXPECT_FALSE(FirmwareFor(0x3702, Model::Km48));
}

TEST_F(Catalogue, EveryIcHasItsTemplateOnce) {
  std::set<std::string> templates;
  for (const std::string& name : pyxis::folder::TemplateNames()) EXPECT_TRUE(templates.insert(name).second) << name;
  std::set<std::string> chips;
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      EXPECT_TRUE(templates.contains(row.ChipName)) << row.ChipName;
      if (list < kFirstKm49List) chips.insert(row.ChipName);
    }
  EXPECT_EQ(chips.size(), 107U);
}

}  // namespace
}  // namespace pyxis::test
