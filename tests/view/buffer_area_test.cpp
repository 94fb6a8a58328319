#include "view/buffer_area.h"

#include "support/recorded_bench.h"
#include "view/show_file.h"

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
  Write("five", Bytes(5));
  Start();
  ShowFile(Path("five"));
  ExpectEvents({"hex 5"});
}

}  // namespace
}  // namespace pyxis::test
