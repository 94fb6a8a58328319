#include "view/buffer_area.h"

#include "support/recorded_bench.h"

namespace pyxis::test {
namespace {

class BufferArea : public RecordedBench {};

// Messages and hex view lie on one place; each change is painted at once.
TEST_F(BufferArea, ChangesPlacesWithTheHexView) {
  EnableControl(ControlId::BufferArea, false);
  ShowControl(ControlId::BufferArea, false);
  Start();
  FrontBufferArea();
  ExpectEvents({"on Buffer", "show Buffer", "hide HexView", "paint"});
  SetReadyText("job");
  ExpectEvents({"Buffer = job", "paint"});
  FrontHexView();
  ExpectEvents({"off Buffer", "show HexView", "paint"});
}

}  // namespace
}  // namespace pyxis::test
