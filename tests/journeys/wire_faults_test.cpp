// What the operator hears when the wire or the writer fails, and that nothing hangs.
#include "link/identification.h"
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
};

TEST_P(WireFaults, DisconnectDuringALoadFailsIt) {
  LoadSample("QV8348");
  for (int transfers : {0, 1, 5, 12, 20}) {
    SCOPED_TRACE(transfers);
    writer.faults.disconnectAfter = transfers;
    EXPECT_EQ(LoadAgain(), Texts{"Loading Data Fail"});
  }
}

TEST_P(WireFaults, ALostLinkEndsATask) {
  LoadSample("QV8348");
  usb.pluggedIn = vendor.pluggedIn = false;
  const std::uint32_t before = clock.tick;
  OnVerify();
  EXPECT_EQ(op.Heard(), Texts{"Verify FAIL"});
  EXPECT_LT(clock.tick - before, 5000U);  // not the bound on the whole task
}

// It stays plugged in, and answers again once it is put back.
TEST_P(WireFaults, AStalledWriterEndsEachOperation) {
  LoadSample("QV8348");
  for (int transfers : {0, 1, 7, 10}) {
    SCOPED_TRACE(transfers);
    writer.faults.stallAfter = transfers;
    EXPECT_EQ(LoadAgain(), Texts{"Loading Data Fail"});
    writer.faults.stallAfter.reset();
    CloseTransport();
    OpenTransport();
    EXPECT_EQ(LoadAgain(), Texts{"Loading Data Ok"});
  }
  writer.faults.stallAfter = 10;
  writer.zeroReads = 100;
  OnVerify();
  EXPECT_EQ(op.Heard(), Texts{"Verify FAIL"});
}

// Behind a load whose cable went at its very end stands no limit of the job before.
TEST_P(WireFaults, ACableThatIsPulledLeavesNoLimitOfBefore) {
  Selection& selection = TheAppState().selection;
  for (int transfers = 0; transfers < 120; ++transfers) {
    SCOPED_TRACE(transfers);
    selection.ProductionLimitOn = true;
    LoadSample("QV8348");
    EXPECT_TRUE(TheMainControls().verdict.left.has_value());
    selection.ProductionLimitOn = false;
    writer.faults.disconnectAfter = transfers;
    LoadAgain();
    EXPECT_FALSE(TheMainControls().verdict.left.has_value());
    CloseTransport();
    writer.faults.disconnectAfter.reset();
    vendor.pluggedIn = true;
    OpenTransport();
  }
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
