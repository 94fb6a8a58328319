// What the operator hears when the wire or the writer fails, and that nothing hangs.
#include "intake/load_file.h"
#include "intake/package_files.h"
#include "operations/firmware.h"
#include "operations/tasks.h"
#include "shell/app_state.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class WireFaults : public StandinBench, public ::testing::WithParamInterface<Transport> {
 protected:
  WireFaults() : StandinBench(GetParam()) {}
  void LoadAgain() {
    op.files.push_back(Path("samples/QV8348.hex"));
    op.told.clear();
    OnLoadFile();
  }
  void Auto() {
    op.told.clear();
    OnAuto();
  }
};

TEST_P(WireFaults, DamagedPackageReadBack) {
  LoadSample("QV8348");
  writer.faults.damageAreaByte = 40;
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Loading Data Fail"});
  writer.faults.damageAreaByte = 1500;  // in the data package only
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Loading Data Fail"});
  writer.faults.damageAreaByte.reset();
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Loading Data Ok"});
}

TEST_P(WireFaults, DamagedFirmwareStopsTheLoadUntilAGoodTransfer) {
  PutFolderFor("QV8348");
  Select("QV8348");
  writer.faults.damageMemoryByte = 0x10000;
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Update Firmware Fail"});
  EXPECT_TRUE(writer.DataArea().empty());
  writer.faults.damageMemoryByte.reset();
  LoadAgain();  // the image counts as sent, but the failure stays
  EXPECT_EQ(op.Texts(), Texts{"Update Firmware Fail"});
  EXPECT_EQ(TheAppState().ProgressMode, 0);
  EXPECT_TRUE(LoadFirmware(Path("firmware48/QV8348.nce"), true));
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Loading Data Ok"});
}

TEST_P(WireFaults, MissingOrShortFirmwareCountsAsFailed) {
  PutFolderFor("QV8348");
  Select("QV8348");
  std::filesystem::remove(folder / "firmware48/QV8348.nce");
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Update Firmware Fail"});
  Write("firmware48/QV8348.nce", Bytes(kFirmwareImageSize - 1));
  LoadAgain();
  EXPECT_EQ(op.Texts(), Texts{"Update Firmware Fail"});
  EXPECT_EQ(writer.FirmwareLoads(), 0);
}

TEST_P(WireFaults, DisconnectDuringALoadFailsIt) {
  LoadSample("QV8348");
  for (int transfers : {0, 1, 5, 12, 20}) {
    SCOPED_TRACE(transfers);
    writer.faults.disconnectAfter = transfers;
    LoadAgain();
    EXPECT_EQ(op.Texts(), Texts{"Loading Data Fail"});
  }
}

TEST_P(WireFaults, NoVerdictAndBadVerdictEndAsFail) {
  LoadSample("QV8348");
  writer.faults.failTask = 1;
  Auto();
  EXPECT_EQ(op.Texts(), Texts{"Auto FAIL"});
  writer.chip = standin::Chip{};
  writer.faults.noVerdict = true;
  clock.step = 10000;
  Auto();
  EXPECT_EQ(op.Texts(), Texts{"Auto FAIL"});
  writer.faults.noVerdict = false;
  writer.chip.state = standin::ChipState::Missing;
  Auto();
  EXPECT_EQ(op.Texts(), Texts{"Auto FAIL"});
}

TEST_P(WireFaults, ALostLinkEndsATask) {
  LoadSample("QV8348");
  usb.pluggedIn = vendor.pluggedIn = false;
  clock.step = 0;  // not the bound on time
  op.told.clear();
  OnVerify();
  EXPECT_EQ(op.Texts(), Texts{"Verify FAIL"});
}

INSTANTIATE_TEST_SUITE_P(BothTransports, WireFaults, ::testing::Values(Transport::Usb, Transport::Vendor));

class LostUsb : public StandinBench {};

TEST_F(LostUsb, DroppedStatusBlockIsNoFailureOfItself) {
  LoadSample("QV8348");
  writer.faults.dropStatusBlock = 3;
  op.files.push_back(Path("samples/QV8348.hex"));
  op.told.clear();
  OnLoadFile();
  EXPECT_EQ(op.Texts(), Texts{"Loading Data Ok"});
  EXPECT_FALSE(writer.faults.dropStatusBlock.has_value());
}

}  // namespace
}  // namespace pyxis::test
