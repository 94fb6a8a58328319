#include <set>

#include "catalogue/chip_catalogue.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"
#include "support/bench.h"
#include "support/tsv.h"

namespace pyxis::test {
namespace {

class Catalogue : public Bench {};

TEST_F(Catalogue, EveryFieldOfEveryRow) {
  const Texts columns{"list",          "place",         "label", "chip",  "extension", "code",
                      "firmware file", "firmware code", "auto",  "blank", "program",   "verify",
                      "read size",     "option",        "smart", "ISP",   "swap",      "masks"};
  const auto number = [](auto value) { return std::to_string(value); };
  std::vector<std::size_t> counts(kListCount);
  std::set<std::string> labels;
  for (const Texts& wanted : ReadTsv("catalogue_rows.tsv")) {
    const int list = std::stoi(wanted[0]), place = std::stoi(wanted[1]);
    ASSERT_EQ(place, static_cast<int>(counts.at(static_cast<std::size_t>(list))++));
    ASSERT_LT(static_cast<std::size_t>(place), ChipList(list).size());
    const ChipEntry& row = Row(list, place);
    const auto firmware = FirmwareFor(row.ChipCode, Model::Km48);
    ASSERT_TRUE(firmware) << row.TypeLabel;
    std::string masks;
    for (const std::uint32_t mask : row.OptionMasks) masks += Printf("%s%X", masks.empty() ? "" : ",", mask);
    ExpectCells(wanted[2], columns,
                {wanted[0], wanted[1], row.TypeLabel, row.ChipName, row.FileExtension, Printf("0x%X", row.ChipCode),
                 firmware->path.substr(firmware->path.rfind('/') + 1), Printf("0x%X", firmware->FirmwareCode),
                 number(row.AutoTicks), number(row.BlankTicks), number(row.ProgramTicks), number(row.VerifyTicks),
                 Printf("0x%X", row.ReadSizeBytes), number(int{row.HasOptionDialog}), number(int{row.HasSmartOption}),
                 number(int{row.HasIspProgram}), number(int{row.ReadSwapBytes}), masks},
                wanted);
    if (!labels.insert(wanted[2]).second) continue;  // the second row of a label is never found
    const AppState& app = TheAppState();
    int foundList = -1, foundPlace = -1;
    EXPECT_EQ(FindChip(wanted[2], foundList, foundPlace), 1);
    EXPECT_EQ(All(foundList, foundPlace), All(list, place));
    EXPECT_EQ(
        All(app.selection.AutoTicks, app.selection.BlankTicks, app.selection.ProgramTicks, app.selection.VerifyTicks,
            app.selection.ReadSizeBytes, app.selection.ReadSwapBytes, app.selection.OptionMasks),
        All(row.AutoTicks, row.BlankTicks, row.ProgramTicks, row.VerifyTicks, row.ReadSizeBytes, row.ReadSwapBytes,
            row.OptionMasks));
  }
  for (int list = 0; list < kListCount; ++list)
    EXPECT_EQ(ChipList(list).size(), counts[static_cast<std::size_t>(list)]) << list;
}

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
