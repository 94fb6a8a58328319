// The package figures: one for each that the program asks for, and what they show.
#include <gtest/gtest.h>

#include "catalogue/chip_catalogue.h"
#include "platform/files.h"
#include "pyxisfolder/drawing/package.h"
#include "shell/app_state.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class Figures : public Bench {};

TEST_F(Figures, LieInTheProgramFolderForEveryRowAndMode) {
  TheAppState().StartDirectory = PYXIS_BIN_DIR "/../folder";
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      EXPECT_TRUE(OpenFile(FigurePath(row.TypeLabel, false, false), "rb")) << row.TypeLabel;
      if (!row.HasIspProgram) continue;
      EXPECT_TRUE(OpenFile(FigurePath(row.TypeLabel, true, false), "rb")) << row.TypeLabel;
      EXPECT_TRUE(OpenFile(FigurePath(row.TypeLabel, false, true), "rb")) << row.TypeLabel;
    }
  for (const char* cursor : {"metronom.ani", "dinosaur.ani"})
    EXPECT_TRUE(OpenFile(TheAppState().StartDirectory + "/" + cursor, "rb")) << cursor;
}

TEST(Package, FollowsTheLabel) {
  struct Case {
    const char* label;
    std::vector<int> counts;
    bool fourSided;
  };
  for (const Case& c :
       {Case{"QV8329_16", {16}, false}, Case{"QV8358_6", {6}, false}, Case{"QV8101_36", {36}, false},
        Case{"QV8104_80", {80}, true}, Case{"QVL09_48", {48}, true}, Case{"QV8119_28_32_44", {28, 32, 44}, true},
        Case{"QV8119", {28, 32, 44}, true}, Case{"QV8202", {16}, false}, Case{"QV8332", {8}, false}}) {
    SCOPED_TRACE(c.label);
    const folder::Package package = folder::PackageOf(c.label);
    EXPECT_EQ(package.pinCounts, c.counts);
    EXPECT_EQ(package.fourSided, c.fourSided);
    EXPECT_TRUE(package.name.ends_with("-" + std::to_string(c.counts.back()))) << package.name;
  }
  // Every package has whole sides.
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list)) {
      const folder::Package package = folder::PackageOf(row.TypeLabel);
      EXPECT_EQ(folder::PinsOf(package).size(), static_cast<std::size_t>(package.Pins())) << row.TypeLabel;
    }
}

TEST(Package, CountsItsPinsCounterClockwise) {
  using folder::Side;
  struct Case {
    const char* label;
    int number;
    Side side;
    int place;
    bool atEnd;
  };
  for (const Case& c : {Case{"QV8329_16", 1, Side::Bottom, 0, true}, Case{"QV8329_16", 2, Side::Bottom, 1, false},
                        Case{"QV8329_16", 8, Side::Bottom, 7, true}, Case{"QV8329_16", 9, Side::Top, 7, true},
                        Case{"QV8329_16", 16, Side::Top, 0, true}, Case{"QV8303_48", 1, Side::Left, 0, true},
                        Case{"QV8303_48", 12, Side::Left, 11, true}, Case{"QV8303_48", 13, Side::Bottom, 0, true},
                        Case{"QV8303_48", 25, Side::Right, 11, true}, Case{"QV8303_48", 37, Side::Top, 11, true},
                        Case{"QV8303_48", 47, Side::Top, 1, false}, Case{"QV8303_48", 48, Side::Top, 0, true}}) {
    const folder::Pin pin = folder::PinsOf(folder::PackageOf(c.label))[static_cast<std::size_t>(c.number - 1)];
    SCOPED_TRACE(c.label + std::string(" pin ") + std::to_string(c.number));
    EXPECT_EQ(pin.number, c.number);
    EXPECT_EQ(pin.side, c.side);
    EXPECT_EQ(pin.place, c.place);
    EXPECT_EQ(pin.atEnd, c.atEnd);
  }
}

}  // namespace
}  // namespace pyxis::test
