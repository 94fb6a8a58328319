// Plain diagnostic lines, on standard output unless a program needs that stream for its own output: the streams are
// fields of TheMachine(), and null prints nothing.
#pragma once

namespace pyxis {

// Of the readers: why a file can't be taken.
[[gnu::format(printf, 1, 2)]] void Diagnose(const char* format, ...);
// Of the link: a line for each transfer, so thousands in a load.
[[gnu::format(printf, 1, 2)]] void Trace(const char* format, ...);

}  // namespace pyxis
