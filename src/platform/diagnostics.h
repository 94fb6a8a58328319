// Where the plain diagnostic lines of the link and the readers go: standard output, unless a program needs that stream
// for its own output.
#pragma once

#include <cstdio>

namespace pyxis {

std::FILE*& DiagnosticsStream();

// printf to the diagnostics stream.
[[gnu::format(printf, 1, 2)]] void Diagnose(const char* format, ...);

}  // namespace pyxis
