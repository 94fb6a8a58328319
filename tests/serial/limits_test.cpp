// Where the serial number of each IC may end.
#include <set>

#include "catalogue/chip_catalogue.h"
#include "data/cases.h"
#include "platform/text.h"
#include "support/serial_entry.h"

namespace pyxis::test {
namespace {

class SerialLimits : public Bench {};

TEST_F(SerialLimits, EveryIc) {
  long n = 0;
  std::set<std::string> listed;
  ForEachCase("ic_groups.tsv", "limits of the serial's end", [&, this](const Case& c) {
    for (const std::string& chip : Parts(c[1], ' ')) {
      SCOPED_TRACE(chip);
      listed.insert(chip);
      TheAppState().selection.SelectedChip = chip;
      const long length = 1 + n++ % 16, limit = c.Number(0);
      const auto enter = [&](long address) {
        CSnSetDlg dialog(true, false, false);
        EnterSerial(dialog, {Printf("%lX", length), Printf("%lX", address), "1", "1"});
        return op.Heard();
      };
      EXPECT_EQ(enter(0), Texts{});
      EXPECT_EQ(enter(limit - length), Texts{});
      EXPECT_EQ(enter(limit - length + 1), Texts{Printf("S/N End Address > 0x%lX", limit)});
    }
  });
  for (const Ic* ic : AllIcs())
    EXPECT_EQ(listed.contains(ic->ChipName), ic->serial.endLimit != 0 && ic->serial.fixedAddress == kAnyAddress)
        << ic->ChipName;
}

TEST_F(SerialLimits, TheChipsNameShowsTenCharacters) {
  TheAppState().selection.SelectedChip = "QV834812345";
  CSnProgramDlg dialog(false);
  dialog.OnInitDialog();
  EXPECT_EQ(dialog.chipText, "QV83481234");
}

}  // namespace
}  // namespace pyxis::test
