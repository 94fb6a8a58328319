#include "serial/sn_run.h"
#include "shell/device_arrival.h"
#include "support/serial_entry.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class Cable : public BothTransports {
 protected:
  static bool Set(const SerialEntry& entry) {
    CSnSetDlg dialog(true, false, true);
    return EnterSerial(dialog, entry);
  }
};

// Wherever the cable is pulled in a load: S/N Program stays off, or the window shows what the writer burns next.
TEST_P(Cable, IsPulledInALoad) {
  const std::string sample = PutFolderFor("QV8348");
  Select("QV8348");
  TheAppState().selection.SnMode = true;
  int whole = 0;  // loads that had come to their end
  for (int transfers = 0; transfers < 120; ++transfers) {
    SCOPED_TRACE(transfers);
    ASSERT_TRUE(Set({"2", "10", "0A00", "9"}));
    Load(sample);
    ASSERT_EQ(op.Heard(), Texts{"Loading Data Ok"});
    CSnProgramDlg& dialog = *SnProgressDlg();
    writer.chip = standin::Chip{};
    ASSERT_TRUE(dialog.OnSnProgram().Good());
    ASSERT_TRUE(Set({"1", "0", "41", "9"}));
    writer.faults.disconnectAfter = transfers;
    Load(sample);
    writer.faults.disconnectAfter = 0;
    OnDeviceEvent({DeviceEvent::Kind::Removal, kWriterInterfaceClass});
    writer.faults.disconnectAfter.reset();
    vendor.pluggedIn = true;
    OnDeviceEvent({DeviceEvent::Kind::Arrival, kWriterInterfaceClass});
    writer.chip = standin::Chip{};
    if (!dialog.OnSnProgram().Good()) continue;
    ++whole;
    EXPECT_EQ(All(dialog.startText, writer.chip.burnt.at(1)), All(std::string("42"), 0x41));
  }
  EXPECT_GT(whole, 0);
}

INSTANTIATE_TEST_SUITE_P(BothTransports, Cable, kBothTransports);

}  // namespace
}  // namespace pyxis::test
