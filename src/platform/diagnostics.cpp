#include "platform/diagnostics.h"

#include <cstdarg>

namespace pyxis {

namespace {
std::FILE* diagnosticsStream = stdout;
}

std::FILE*& DiagnosticsStream() { return diagnosticsStream; }

void Diagnose(const char* format, ...) {
  va_list args;
  va_start(args, format);
  std::vfprintf(diagnosticsStream, format, args);
  va_end(args);
}

}  // namespace pyxis
