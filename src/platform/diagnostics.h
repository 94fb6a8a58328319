// Plain diagnostic lines on standard output. A program that needs that stream for its own output sets another one; null
// prints nothing.
#pragma once

#include <cstdio>

namespace pyxis {

// Of the readers: why a file can't be taken.
std::FILE*& DiagnosticsStream();
[[gnu::format(printf, 1, 2)]] void Diagnose(const char* format, ...);

// Of the link: a line for each transfer, so thousands in a load.
std::FILE*& TraceStream();
[[gnu::format(printf, 1, 2)]] void Trace(const char* format, ...);

}  // namespace pyxis
