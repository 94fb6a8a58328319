#include "platform/diagnostics.h"

#include <cstdarg>
#include <cstdio>

#include "platform/machine.h"

namespace pyxis {

namespace {

void Print(std::FILE* stream, const char* format, std::va_list args) {
  if (stream != nullptr) std::vfprintf(stream, format, args);
}

}  // namespace

void Diagnose(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  Print(TheMachine().diagnostics, format, args);
  va_end(args);
}

void Trace(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  Print(TheMachine().trace, format, args);
  va_end(args);
}

}  // namespace pyxis
