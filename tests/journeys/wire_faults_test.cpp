// What the operator hears when the wire or the writer fails, and that nothing hangs.
#include "operations/firmware.h"
#include "operations/tasks.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class WireFaults : public BothTransports {
 protected:
  Texts LoadAgain() {
    Load("samples/QV8348.hex");
    return op.Heard();
  }
  Texts Auto() {
    OnAuto();
    return op.Heard();
  }
  const Texts loaded{"Loading Data Ok"}, loadFailed{"Loading Data Fail"}, firmwareFailed{"Update Firmware Fail"};
  const Texts autoFailed{"Auto FAIL"};
};

TEST_P(WireFaults, DamagedPackageReadBack) {
  LoadSample("QV8348");
  writer.faults.damageAreaByte = 40;
  EXPECT_EQ(LoadAgain(), loadFailed);
  writer.faults.damageAreaByte = 1500;  // in the data package only
  EXPECT_EQ(LoadAgain(), loadFailed);
  writer.faults.damageAreaByte.reset();
  EXPECT_EQ(LoadAgain(), loaded);
}

TEST_P(WireFaults, DamagedFirmwareStopsTheLoadUntilAGoodTransfer) {
  PutFolderFor("QV8348");
  Select("QV8348");
  writer.faults.damageMemoryByte = 0x10000;
  EXPECT_EQ(LoadAgain(), firmwareFailed);
  EXPECT_TRUE(writer.DataArea().empty());
  writer.faults.damageMemoryByte.reset();
  // the image counts as sent, but the failure stays
  EXPECT_EQ(LoadAgain(), firmwareFailed);
  EXPECT_EQ(TheAppState().writer.ProgressMode, Progress::None);
  EXPECT_TRUE(LoadFirmware(Path("firmware48/QV8348.nce"), true));
  EXPECT_EQ(LoadAgain(), loaded);
}

TEST_P(WireFaults, MissingOrShortFirmwareCountsAsFailed) {
  PutFolderFor("QV8348");
  Select("QV8348");
  std::filesystem::remove(folder / "firmware48/QV8348.nce");
  EXPECT_EQ(LoadAgain(), firmwareFailed);
  Write("firmware48/QV8348.nce", Bytes(kFirmwareImageSize - 1));
  EXPECT_EQ(LoadAgain(), firmwareFailed);
  EXPECT_EQ(writer.FirmwareLoads(), 0);
}

TEST_P(WireFaults, DisconnectDuringALoadFailsIt) {
  LoadSample("QV8348");
  for (int transfers : {0, 1, 5, 12, 20}) {
    SCOPED_TRACE(transfers);
    writer.faults.disconnectAfter = transfers;
    EXPECT_EQ(LoadAgain(), loadFailed);
  }
}

TEST_P(WireFaults, NoVerdictAndBadVerdictEndAsFail) {
  LoadSample("QV8348");
  writer.faults.failTask = 1;
  EXPECT_EQ(Auto(), autoFailed);
  writer.chip = standin::Chip{};
  writer.faults.noVerdict = true;
  clock.step = 10000;
  EXPECT_EQ(Auto(), autoFailed);
  writer.faults.noVerdict = false;
  writer.chip.state = standin::ChipState::Missing;
  EXPECT_EQ(Auto(), autoFailed);
}

TEST_P(WireFaults, ALostLinkEndsATask) {
  LoadSample("QV8348");
  usb.pluggedIn = vendor.pluggedIn = false;
  const std::uint32_t before = clock.tick;
  OnVerify();
  EXPECT_EQ(op.Heard(), Texts{"Verify FAIL"});
  EXPECT_LT(clock.tick - before, 5000U);  // not the bound on the whole task
}

INSTANTIATE_TEST_SUITE_P(BothTransports, WireFaults, kBothTransports);

class LostUsb : public StandinBench {};

TEST_F(LostUsb, DroppedStatusBlockIsNoFailureOfItself) {
  LoadSample("QV8348");
  writer.faults.dropStatusBlock = 3;
  Load("samples/QV8348.hex");
  EXPECT_EQ(op.Heard(), Texts{"Loading Data Ok"});
  EXPECT_FALSE(writer.faults.dropStatusBlock.has_value());
}

}  // namespace
}  // namespace pyxis::test
