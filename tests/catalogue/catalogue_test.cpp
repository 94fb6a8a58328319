#include <gtest/gtest.h>

#include <set>

#include "catalogue/chip_catalogue.h"
#include "pyxisfolder/folder.h"
#include "shell/app_state.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Catalogue : public Bench {};

TEST_F(Catalogue, FindsRowsByLabel) {
  struct Case {
    const char* label;
    int found, list, place;
  };
  for (const Case& c : {Case{"qv8329_16", 1, 10, 5}, Case{"QV8305", 0, -1, -1}, Case{"QV8368_24", 1, 10, 56},
                        Case{"QV4101", 1, 0, 0}, Case{"QVL09_48", 1, 12, 0}, Case{"QVL09", 1, 7, 4},
                        Case{"QV8119_28_32_44", 1, 8, 13}, Case{"QV8329_", 0, -1, -1}, Case{"", 0, -1, -1}}) {
    SCOPED_TRACE(c.label);
    int list = -1, place = -1;
    EXPECT_EQ(FindChip(c.label, list, place), c.found);
    EXPECT_EQ(list, c.list);
    EXPECT_EQ(place, c.place);
  }
}

TEST_F(Catalogue, AMissChangesNothing) {
  int list = 3, place = 4;
  TheAppState().ReadSizeBytes = 77;
  EXPECT_EQ(FindChip("QV9999", list, place), 0);
  EXPECT_EQ(TheAppState().ReadSizeBytes, 77U);
}

TEST_F(Catalogue, RowsThatDifferFromTheirIc) {
  struct Case {
    const char* label;
    std::uint32_t readSize;
    std::array<std::uint32_t, 9> masks;
  };
  for (const Case& c : {
           Case{"QV8329", 0x800, {0x2000, 0x1000, 0x800, 0x300, 0x80, 0x40}},
           Case{"QV8329_16", 0x800, {0x2000, 0x1000, 0xC00, 0x300, 0x80, 0x40}},
           Case{"QV8319", 0x820, {0x2000, 0xC00, 0x200, 0x80, 0x40}},
           Case{"QV8319_18", 0x820, {0x2000, 0xC00, 0x300, 0x80, 0x40}},
           Case{"QV8306", 0x820, {0x2000, 0x800, 0x80, 0x40}},
           Case{"QV8306_16", 0x1020, {0x2000, 0x800, 0x80, 0x40}},
           Case{"QV8307_16", 0x1020, {0x2000, 0x800, 0x80, 0x40}},
       }) {
    SCOPED_TRACE(c.label);
    int list = 0, place = 0;
    ASSERT_EQ(FindChip(c.label, list, place), 1);
    EXPECT_EQ(TheAppState().ReadSizeBytes, c.readSize);
    EXPECT_EQ(TheAppState().OptionMasks, c.masks);
  }
}

TEST_F(Catalogue, FirmwareImages) {
  TheAppState().AppDir = "/p/";
  struct Case {
    const char* label;
    int model;
    const char* path;
    std::uint32_t code;
  };
  for (const Case& c : {Case{"QV4206", 1, "/p/firmware48/QV4207.nce", 0x1393},
                        Case{"QV4207", 1, "/p/firmware48/QV4207.nce", 0x1393},
                        Case{"QV8336", 2, "/p/firmware49/QV8336.nce", 0x709},
                        Case{"QV8344", 2, "/p/firmware49/QV8344.nce", 0x2709},
                        Case{"QVL01", 1, "/p/firmware48/all.nce", 0}}) {
    int list = 0, place = 0;
    ASSERT_EQ(FindChip(c.label, list, place), 1);
    const auto firmware = FirmwareFor(Row(list, place).ChipCode, c.model);
    ASSERT_TRUE(firmware);
    EXPECT_EQ(firmware->path, c.path);
    EXPECT_EQ(firmware->FirmwareCode, c.code);
  }
  EXPECT_FALSE(FirmwareFor(0x3702, 1));
}

TEST_F(Catalogue, SeriesOfBothModels) {
  EXPECT_EQ(SeriesCaptions(1).size(), 8U);
  EXPECT_EQ(SeriesCaptions(2).size(), 5U);
  EXPECT_STREQ(SeriesCaptions(2)[4], "USB: Full Speed Series");
  EXPECT_TRUE(SeriesCaptions(0).empty());
  EXPECT_EQ(ListIndex(2, 4), 12);
  EXPECT_STREQ(Row(10, 56).TypeLabel, Row(10, 71).TypeLabel);
}

TEST_F(Catalogue, EveryIcHasItsFiles) {
  std::set<std::string> templates;
  for (const std::string& name : pyxis::folder::TemplateNames()) {
    EXPECT_TRUE(templates.insert(name).second) << name;
    EXPECT_EQ(pyxis::folder::MakeTemplate(name).size(), kInfoBlockSize);
  }
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      EXPECT_TRUE(templates.contains(row.ChipName)) << row.ChipName;
      EXPECT_FALSE(pyxis::folder::MakeSamples(row.ChipName).empty()) << row.ChipName;
    }
}

}  // namespace
}  // namespace pyxis::test
