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
  const auto table = ReadTsv("catalogue_rows.tsv");
  std::set<std::string> known, labels;
  for (const Texts& wanted : table) known.insert(wanted[3]);
  // The rows of the ICs in the table, with their places among each other: an IC that is newer doesn't count.
  std::vector<std::tuple<int, int, const ChipEntry*>> rows;
  for (int list = 0; list < kListCount; ++list)
    for (int place = 0; const ChipEntry& row : ChipList(list))
      if (known.contains(row.ChipName)) rows.emplace_back(list, place++, &row);
  ASSERT_EQ(rows.size(), table.size());
  for (std::size_t i = 0; i < table.size(); ++i) {
    const Texts& wanted = table[i];
    const auto& [list, place, entry] = rows[i];
    const ChipEntry& row = *entry;
    const auto firmware = FirmwareFor(row.ChipCode, Model::Km48);
    ASSERT_TRUE(firmware) << row.TypeLabel;
    std::string masks;
    for (const std::uint32_t mask : row.OptionMasks) masks += Printf("%s%X", masks.empty() ? "" : ",", mask);
    ExpectCells(
        wanted[2], columns,
        {number(list), number(place), row.TypeLabel, row.ChipName, row.FileExtension, Printf("0x%X", row.ChipCode),
         firmware->path.substr(firmware->path.rfind('/') + 1), Printf("0x%X", firmware->FirmwareCode),
         number(row.AutoTicks), number(row.BlankTicks), number(row.ProgramTicks), number(row.VerifyTicks),
         Printf("0x%X", row.ReadSizeBytes), number(int{row.HasOptionDialog}), number(int{row.HasSmartOption}),
         number(int{row.HasIspProgram}), number(int{row.ReadSwapBytes}), masks},
        wanted);
    if (!labels.insert(wanted[2]).second) continue;  // the second row of a label is never found
    const AppState& app = TheAppState();
    int foundList = -1, foundPlace = -1;
    EXPECT_EQ(FindChip(wanted[2], foundList, foundPlace), 1);
    EXPECT_EQ(All(foundList, &Row(foundList, foundPlace)), All(list, entry));
    EXPECT_EQ(
        All(app.selection.AutoTicks, app.selection.BlankTicks, app.selection.ProgramTicks, app.selection.VerifyTicks,
            app.selection.ReadSizeBytes, app.selection.ReadSwapBytes, app.selection.OptionMasks),
        All(row.AutoTicks, row.BlankTicks, row.ProgramTicks, row.VerifyTicks, row.ReadSizeBytes, row.ReadSwapBytes,
            row.OptionMasks));
  }
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
  for (const Ic* ic : AllIcs()) {
    if (ic->ChipCode == kNoCode) continue;
    EXPECT_TRUE(templates.contains(ic->ChipName)) << ic->ChipName;
    EXPECT_TRUE(templates.contains(ic->templateName)) << ic->ChipName;
  }
}

}  // namespace
}  // namespace pyxis::test
