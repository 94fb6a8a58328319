// The access library's stand-in: a thin client of a stand-in writer that runs as a process. Calls block for at most the
// time-out; a writer that has gone makes them fail.
#include <algorithm>
#include <chrono>
#include <cstdint>

#include "platform/vendor_api.h"
#include "standin/local_client.h"
#include "standin/socket_path.h"

namespace {

constexpr int kGood = 0;
constexpr int kFailed = -1;

pyxis::standin::LocalClient writer;

int Result(bool good) { return good ? kGood : kFailed; }

}  // namespace

extern "C" {

int VMOpen(int model, int, int) {
  writer.Close();
  return Result(model == pyxis::kVendorModel && writer.Open(pyxis::standin::SocketPath()));
}

void VMSetTimeout(int seconds) { writer.SetTimeout(std::chrono::seconds(std::max(seconds, 1))); }

void VMClose() { writer.Close(); }

int VMWrite(std::uint8_t opcode, const std::uint8_t* data, std::uint32_t length) {
  return Result(writer.Write(opcode, {data, data == nullptr ? 0 : length}));
}

int VMRead(std::uint8_t opcode, std::uint8_t* buffer, std::uint32_t length) {
  return Result(writer.Read(opcode, {buffer, length}));
}

}  // extern "C"
