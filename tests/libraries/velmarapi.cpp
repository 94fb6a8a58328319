// A stand-in of the access library that keeps what it was called with.
#include <cstdint>
#include <string>

namespace {
std::string theCalls;

void Add(const char* name, long a, long b, long c) {
  theCalls += name;
  for (const long number : {a, b, c}) theCalls.append(" ").append(std::to_string(number));
  theCalls += "; ";
}
}  // namespace

extern "C" {

int VMOpen(int model, int a, int b) { return Add("open", model, a, b), -3; }
void VMSetTimeout(int timeout) { Add("timeout", timeout, 0, 0); }
void VMClose() { Add("close", 0, 0, 0); }
int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) {
  return Add("write", opcode, *data, length), -4;
}
int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) {
  *buffer = 99;
  return Add("read", opcode, 0, length), -5;
}

// For the test alone.
const char* Calls() { return theCalls.c_str(); }
}
