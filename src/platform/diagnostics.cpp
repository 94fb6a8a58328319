#include "platform/diagnostics.h"

#include <cstdarg>

namespace pyxis {

namespace {

std::FILE* diagnosticsStream = stdout;
std::FILE* traceStream = stdout;

void Print(std::FILE* stream, const char* format, std::va_list args) {
  if (stream != nullptr) std::vfprintf(stream, format, args);
}

}  // namespace

std::FILE*& DiagnosticsStream() { return diagnosticsStream; }
std::FILE*& TraceStream() { return traceStream; }

void Diagnose(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  Print(diagnosticsStream, format, args);
  va_end(args);
}

void Trace(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  Print(traceStream, format, args);
  va_end(args);
}

}  // namespace pyxis
