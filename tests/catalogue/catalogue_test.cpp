#include <set>

#include "catalogue/chip_catalogue.h"
#include "data/cases.h"
#include "intake/package_files.h"
#include "platform/text.h"
#include "pyxisfolder/folder.h"

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
  std::map<std::string, const ChipEntry*> first;
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
    EXPECT_EQ(RowOfChip(wanted[3]), first.try_emplace(wanted[3], entry).first->second);
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
  ForEachCase("catalogue_looks.tsv", "labels", [](const Case& c) {
    int list = -1, place = -1;
    TheAppState().selection.ReadSizeBytes = 77;
    EXPECT_EQ(FindChip(c[0], list, place), c.Number(1) < 0 ? 0 : 1);
    EXPECT_EQ(All(list, place, TheAppState().selection.ReadSizeBytes == 77),
              All(c.Number(1), c.Number(2), c.Number(1) < 0));
  });
}

TEST_F(Catalogue, KnowsABlockByTheStartOfAName) {
  for (const auto& [block, known] :
       Table<std::string, bool>{{"QV", true}, {"QVx", true}, {"Q", false}, {"", false}, {"QX", false}, {"PV", false}})
    EXPECT_EQ(StartsLikeAName(std::span(reinterpret_cast<const std::uint8_t*>(block.data()), block.size())), known)
        << block;
}

TEST_F(Catalogue, FirmwareImages) {
  TheAppState().program.AppDir = "/p/";
  ForEachCase("catalogue_looks.tsv", "firmware", [](const Case& c) {
    int list = 0, place = 0;
    ASSERT_EQ(FindChip(c[0], list, place), 1);
    const auto firmware = FirmwareFor(Row(list, place).ChipCode, c[1] == "KM48" ? Model::Km48 : Model::Km49);
    ASSERT_TRUE(firmware);
    EXPECT_EQ(All(firmware->path, firmware->FirmwareCode), All(c[2], c.Number(3)));
  });
  EXPECT_FALSE(FirmwareFor(0x3702, Model::Km48));
  EXPECT_TRUE(FirmwareFor(0x3706, Model::None)->path.ends_with("firmware49/QV8121.nce"));
}

// By its own name, which Read Chip and the serial numbers go by, and by that which its converter opens.
TEST_F(Catalogue, EveryIcHasItsTemplates) {
  const std::set<std::string> templates = pyxis::folder::TemplateNames();
  for (const Ic* ic : AllIcs()) {
    if (ic->ChipCode == kNoCode) continue;
    EXPECT_TRUE(templates.contains(ic->ChipName)) << ic->ChipName;
    EXPECT_TRUE(templates.contains(ic->templateName)) << ic->ChipName;
    EXPECT_EQ(ChipNameOf(pyxis::folder::MakeTemplate(ic->ChipName)), ic->ChipName);
  }
}

}  // namespace
}  // namespace pyxis::test
