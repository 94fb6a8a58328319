// A standard output or socket whose reader has gone.
#pragma once

namespace pyxis {

// Writing there fails from now on, in place of ending the program in the middle of an operation. Every program's main
// calls it first.
void IgnoreBrokenPipes();

}  // namespace pyxis
