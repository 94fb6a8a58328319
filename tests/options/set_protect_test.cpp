// Set Protect: its events, and the bit that each IC keeps its protection in.
#include "options/set_protect.h"

#include <cstring>

#include "catalogue/chip_catalogue.h"
#include "data/cases.h"
#include "intake/package_files.h"
#include "options/option_select.h"
#include "platform/text.h"
#include "support/recorded_bench.h"

namespace pyxis::test {
namespace {

class SetProtect : public RecordedOnBoth {
 protected:
  // The operator's click in Option Select 1, nothing for a closed window.
  void Protect(std::optional<bool> protect) {
    op.optionSelect = [protect](COptionSelectDlg& dialog) {
      EXPECT_EQ(All(dialog.Shown(COptionSelectDlg::Protection), dialog.Shown(COptionSelectDlg::Mode),
                    dialog.Shown(COptionSelectDlg::Clock)),
                All(0, -1, -1));
      dialog.Click(COptionSelectDlg::Mode, 0);
      dialog.Click(COptionSelectDlg::Protection, protect.value_or(true) ? 1 : 0);
      if (protect) dialog.OnOk();
      return protect ? DialogEnd::Ok : DialogEnd::Cancel;
    };
    Start();
    OnSetProtect();
  }
  // A job of this IC in the writer, of random bytes.
  void Hold(const ChipEntry& row, int series, int type) {
    Selection& chosen = TheAppState().selection;
    chosen.SelectedChip = row.ChipName;
    chosen.SeriesIndex = series;
    chosen.TypeIndex = type;
    Bytes& block = writer.OptionArea();
    for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<std::uint8_t>(i * 37 + 11);
    std::fill_n(block.begin(), 10, std::uint8_t{0});
    std::copy_n(row.ChipName, std::strlen(row.ChipName), block.begin());
    std::fill_n(block.begin() + 244, 12, std::uint8_t{0});  // the writer's own, which begin anew with each job
  }
};

TEST_P(SetProtect, Events) {
  LoadSample("QVL04");
  Write(kDataPackageName, Bytes{1});
  writer.OptionArea()[36] = 0x03;
  for (const ControlId id : {ControlId::Protect, ControlId::Unprotect}) ShowControl(id, false);
  for (const ControlId id : {ControlId::DualMode, ControlId::Unprotect}) CheckControl(id, true);
  for (const ControlId id :
       {ControlId::Protect, ControlId::FastMode, ControlId::Clock32kDisable, ControlId::Clock32kEnable})
    CheckControl(id, false);
  Bytes block = writer.OptionArea();
  Protect(std::nullopt);
  ExpectEvents(InfoBlock() + Texts{"dialog Option Select 1", "Cancel"});
  Protect(true);
  block[36] = 0x02;
  ExpectEvents(InfoBlock() +
               Texts{"dialog Option Select 1", "OK", "show Unprotect Protect", "unmark Unprotect Dual",
                     "mark Protect Fast 32K+", "w START_TASK 30", "w CONTROL 10", "file buffer_option.prog 512"} +
               PackageFile("04", block) + Texts{"w SET_MODE 07", "w CONTROL 90"});
  EXPECT_EQ(Contents(kDataPackageName), Bytes{1});
  std::filesystem::remove(folder / kOptionPackageName);
  std::filesystem::create_directory(folder / kOptionPackageName);
  Protect(true);
  ExpectEvents(InfoBlock() + Texts{"dialog Option Select 1", "OK", "unmark Protect Fast 32K+", "mark Protect Fast 32K+",
                                   "w START_TASK 30", "w CONTROL 10",
                                   "box [PyxisLoad] Open Fail ! (buffer_option.prog)", "w SET_MODE 07",
                                   "w CONTROL 90"});
}

INSTANTIATE_TEST_SUITE_P(BothTransports, SetProtect, kBothTransports);

class EveryIcsProtection : public SetProtect {};

TEST_P(EveryIcsProtection, IsOneBit) {
  // By the IC's name, "others" for the rest: byte, mask, a set bit protects, it stands in the configuration word as
  // well, and what the panel shows of the pair: the box of a set bit, or nothing.
  std::map<std::string, Case> places;
  for (const Case& c : Cases("ic_groups.tsv", "protection"))
    for (const std::string& name : Parts(c[0], ' ')) places[name] = c;
  for (int series = 0; series < kListCount; ++series)
    for (int type = 0; type < static_cast<int>(ChipList(series).size()); ++type) {
      const ChipEntry& row = Row(series, type);
      if (&row != RowOfChip(row.ChipName)) continue;  // the same IC in another package
      SCOPED_TRACE(row.TypeLabel);
      const Case& place = places[places.contains(row.ChipName) ? row.ChipName : "others"];
      const auto at = static_cast<std::size_t>(place.Number(1));
      const int mask = static_cast<int>(place.Number(2)), bit = mask << 8;
      Hold(row, series, type);
      for (const bool protect : {true, false}) {
        Bytes block = writer.OptionArea();
        const bool set = protect == place.Yes(3);
        block[at] = static_cast<std::uint8_t>(set ? block[at] | mask : block[at] & ~mask);
        for (const std::int32_t word : {-1, 0x10055}) {
          TheAppState().conversion.SystemConfigWord = word;
          Protect(protect);
          EXPECT_EQ(TheAppState().conversion.SystemConfigWord, !place.Yes(4) ? word
                                                               : set         ? word | bit
                                                                             : word & 0xFFFF & ~bit);
        }
        EXPECT_EQ(writer.OptionArea(), block);
        EXPECT_EQ(Contents(kOptionPackageName), block);
        const MainControls& controls = TheMainControls();
        const bool shown = !place[5].empty(), first = set == (place[5] == "Unprotect");
        EXPECT_EQ(All(controls[ControlId::Unprotect].visible, controls[ControlId::Protect].visible), All(shown, shown));
        if (shown) {
          EXPECT_EQ(All(controls[ControlId::Unprotect].checked, controls[ControlId::Protect].checked),
                    All(first, !first));
        }
      }
    }
}

INSTANTIATE_TEST_SUITE_P(OneTransport, EveryIcsProtection, ::testing::Values(Transport::Vendor));

// A job whose IC isn't found by its bare name leaves another IC's row selected.
TEST_P(EveryIcsProtection, OfAnotherIcsRowIsRefused) {
  LoadSample("QV8348");
  const Bytes before = writer.OptionArea();
  TheAppState().selection.SelectedChip = "QV8305";
  Protect(true);
  ExpectEvents(InfoBlock() + Texts{"box [Message, warning] HW and SW Chip Name is discordant"});
  EXPECT_EQ(writer.OptionArea(), before);
}

}  // namespace
}  // namespace pyxis::test
