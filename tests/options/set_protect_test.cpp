// The bit that each IC keeps its protection in.
#include "options/set_protect.h"

#include <cstring>

#include "catalogue/chip_catalogue.h"
#include "data/cases.h"
#include "intake/package_files.h"
#include "options/option_select.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class EveryIcsProtection : public StandinBench {
 protected:
  EveryIcsProtection() : StandinBench(Transport::Vendor) {}
  void Protect(bool protect) {
    op.optionSelect = [protect](COptionSelectDlg& dialog) {
      dialog.Click(COptionSelectDlg::Protection, protect ? 1 : 0);
      dialog.OnOk();
      return DialogEnd::Ok;
    };
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

TEST_F(EveryIcsProtection, IsOneBit) {
  // By the IC's name: byte, mask, a set bit protects, it stands in the configuration word as
  // well, and what the panel shows of the pair: the box of a set bit, or nothing.
  std::map<std::string, Case> places;
  for (const Case& c : Cases("ic_groups.tsv", "protection"))
    for (const std::string& name : Parts(c[0], ' ')) places[name] = c;
  for (int series = 0; series < kListCount; ++series)
    for (int type = 0; type < static_cast<int>(ChipList(series).size()); ++type) {
      const ChipEntry& row = Row(series, type);
      if (&row != RowOfChip(row.ChipName)) continue;  // the same IC in another package
      SCOPED_TRACE(row.TypeLabel);
      ASSERT_TRUE(places.contains(row.ChipName)) << "where its protection lies isn't told";
      const Case& place = places[row.ChipName];
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

}  // namespace
}  // namespace pyxis::test
