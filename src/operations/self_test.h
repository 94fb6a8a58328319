// Writer Test: the voltages of the writer's own boards.
#pragma once

namespace pyxis {

void WriterTest();

}  // namespace pyxis
