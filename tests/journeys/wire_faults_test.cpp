// What the operator hears when the wire or the writer fails, and that nothing hangs.
#include "link/identification.h"
#include "operations/tasks.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

class WireFaults : public BothTransports {
 protected:
  void ExpectLoad(const char* told) {
    Load("samples/QV8348.hex");
    EXPECT_EQ(op.Heard(), Texts{told});
  }
  void Mend() {
    writer.faults = {};
    usb.pluggedIn = vendor.pluggedIn = true;
    CloseTransport();
    OpenTransport();
  }
};

// A stalled writer stays plugged in, and answers again once it is put back.
TEST_P(WireFaults, AWriterThatGoesOrStallsDuringALoadFailsIt) {
  LoadSample("QV8348");
  for (const int transfers : {0, 1, 5, 7, 10})
    for (auto standin::Faults::*fault : {&standin::Faults::disconnectAfter, &standin::Faults::stallAfter}) {
      SCOPED_TRACE(transfers);
      writer.faults.*fault = transfers;
      ExpectLoad("Loading Data Fail");
      Mend();
      ExpectLoad("Loading Data Ok");
    }
}

TEST_P(WireFaults, ALostLinkOrAStallEndsATask) {
  LoadSample("QV8348");
  writer.faults.stallAfter = 10;
  writer.zeroReads = 100;
  OnVerify();
  EXPECT_EQ(op.Heard(), Texts{"Verify FAIL"});
  Mend();
  usb.pluggedIn = vendor.pluggedIn = false;
  const std::uint32_t before = clock.tick;
  OnVerify();
  EXPECT_EQ(op.Heard(), Texts{"Verify FAIL"});
  EXPECT_LT(clock.tick - before, 5000U);  // not the bound on the whole task
}

// Behind a load whose cable went at its very end stands no limit of the job before.
TEST_P(WireFaults, ACableThatIsPulledLeavesNoLimitOfBefore) {
  Selection& selection = TheAppState().selection;
  LoadSample("QV8348");
  for (int transfers = 0; transfers < 120; ++transfers) {
    SCOPED_TRACE(transfers);
    selection.ProductionLimitOn = true;
    ExpectLoad("Loading Data Ok");
    EXPECT_TRUE(TheMainControls().verdict.left.has_value());
    selection.ProductionLimitOn = false;
    writer.faults.disconnectAfter = transfers;
    Load("samples/QV8348.hex");
    EXPECT_FALSE(TheMainControls().verdict.left.has_value());
    Mend();
  }
}

TEST_P(WireFaults, ADroppedStatusBlockIsNoFailureOfItself) {
  if (GetParam() != Transport::Usb) return;  // the frames alone have one
  LoadSample("QV8348");
  writer.faults.dropStatusBlock = 3;
  ExpectLoad("Loading Data Ok");
  EXPECT_FALSE(writer.faults.dropStatusBlock.has_value());
}

INSTANTIATE_TEST_SUITE_P(BothTransports, WireFaults, kBothTransports);

}  // namespace
}  // namespace pyxis::test
