#include "support/wire_log.h"

#include <algorithm>

#include "platform/text.h"

namespace pyxis::test {

namespace {

void Answer(std::deque<Bytes>& script, std::uint8_t* data, std::size_t count) {
  std::fill_n(data, count, std::uint8_t{0});
  if (script.empty()) return;
  std::copy_n(script.front().begin(), std::min(count, script.front().size()), data);
  script.pop_front();
}

}  // namespace

std::string Hex(const std::uint8_t* data, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += Printf(i == 0 ? "%02X" : " %02X", data[i]);
  return text;
}

std::vector<UsbBus> WireLog::FindDevices() {
  calls.push_back("find");
  return buses;
}

UsbHost::Handle WireLog::Open(const UsbDeviceEntry& device) {
  calls.push_back(device.device == &first_ ? "open 1" : "open 2");
  return device.device;
}

int WireLog::BulkWrite(Handle, int endpoint, const std::uint8_t* data, int count, int timeout) {
  if (endpoint != 0x02 || timeout != 0) wire.push_back("wrong endpoint or time-out");
  wire.push_back(count > 16 ? Printf("> %d bytes", count) : "> " + Hex(data, static_cast<std::size_t>(count)));
  return writes_++ == failWriteAt ? -1 : count;
}

int WireLog::BulkRead(Handle, int endpoint, std::uint8_t* data, int count, int timeout) {
  if (endpoint != 0x81 || timeout != 0) wire.push_back("wrong endpoint or time-out");
  wire.push_back(Printf("< %d", count));
  if (readCount_++ == failReadAt) return -1;
  // Status blocks have a length that no scripted data has.
  if (count != 13) Answer(reads, data, static_cast<std::size_t>(count));
  return count;
}

}  // namespace pyxis::test
