// The bare loop: makes the bulk transfers of a package download once more, as transfer_log kept them, with nothing
// between them: bulk_loop RECORD. With "times" behind it, it only prints those of the record.
#include <usb.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "transfer_record.h"

namespace {

constexpr int kVendor = 0x7A31, kProduct = 0x1602;
constexpr int kTimeoutMs = 10000;
constexpr int kInBit = 0x80;
constexpr std::size_t kLongest = 512;
constexpr int kCommandSize = 13;
constexpr int kOpcodeOffset = 12;
constexpr char kStartTask = 21, kControl = 23;
constexpr char kOpenLoad = 48;
constexpr char kEndLoad = static_cast<char>(144);

struct Step {
  Transfer transfer;
  std::vector<char> data;
};

std::vector<Step> Read(const char* path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<Step> steps;
  Transfer transfer;
  while (file.read(reinterpret_cast<char*>(&transfer), sizeof transfer)) {
    Step step{transfer, std::vector<char>(transfer.result > 0 ? static_cast<std::size_t>(transfer.result) : 0)};
    file.read(step.data.data(), static_cast<std::streamsize>(step.data.size()));
    steps.push_back(std::move(step));
  }
  return steps;
}

// A command with one byte of data: its block, the byte, the status block.
bool Is(const std::vector<Step>& steps, std::size_t i, char opcode, char value) {
  return i + 2 < steps.size() && steps[i].data.size() == kCommandSize && steps[i].data[kOpcodeOffset] == opcode &&
         steps[i + 1].data.size() == 1 && steps[i + 1].data[0] == value;
}

// The last download of packages in the record, from the task that opens it to the control that closes it.
std::vector<Step> Download(const std::vector<Step>& steps) {
  std::size_t first = steps.size(), behind = 0;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (Is(steps, i, kStartTask, kOpenLoad)) first = i;
    if (first < i && behind <= first && Is(steps, i, kControl, kEndLoad)) behind = i + 3;
  }
  if (behind <= first) return {};
  return {steps.begin() + static_cast<std::ptrdiff_t>(first), steps.begin() + static_cast<std::ptrdiff_t>(behind)};
}

usb_dev_handle* OpenWriter() {
  usb_init();
  usb_find_busses();
  usb_find_devices();
  for (usb_bus* bus = usb_get_busses(); bus != nullptr; bus = bus->next)
    for (struct usb_device* device = bus->devices; device != nullptr; device = device->next)
      if (device->descriptor.idVendor == kVendor && device->descriptor.idProduct == kProduct) {
        usb_dev_handle* handle = usb_open(device);
        if (handle != nullptr && usb_set_configuration(handle, 1) >= 0 && usb_claim_interface(handle, 0) >= 0)
          return handle;
      }
  return nullptr;
}

// False when a transfer fails or brings something else than in the record.
bool Replay(usb_dev_handle* writer, std::vector<Step>& steps, std::vector<char>& buffer) {
  for (Step& step : steps) {
    const Transfer& transfer = step.transfer;
    if ((transfer.endpoint & kInBit) == 0) {
      if (usb_bulk_write(writer, transfer.endpoint, step.data.data(), transfer.count, kTimeoutMs) != transfer.result)
        return false;
    } else if (usb_bulk_read(writer, transfer.endpoint, buffer.data(), transfer.count, kTimeoutMs) != transfer.result ||
               std::memcmp(buffer.data(), step.data.data(), step.data.size()) != 0) {
      return false;
    }
  }
  return true;
}

// Nanoseconds of each transfer: since the one before, and its own.
void PrintTimes(const std::vector<Step>& steps) {
  std::int64_t before = steps.front().transfer.began;
  for (const auto& [transfer, data] : steps) {
    std::printf("%lld %lld\n", static_cast<long long>(transfer.began - before),
                static_cast<long long>(transfer.ended - transfer.began));
    before = transfer.ended;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: bulk_loop RECORD [times]\n");
    return 2;
  }
  std::vector<Step> steps = Download(Read(argv[1]));
  if (steps.empty()) {
    std::fprintf(stderr, "no download in %s\n", argv[1]);
    return 1;
  }
  if (argc > 2) {
    PrintTimes(steps);
    return 0;
  }
  usb_dev_handle* const writer = OpenWriter();
  if (writer == nullptr) {
    std::fprintf(stderr, "no writer\n");
    return 1;
  }
  std::vector<char> buffer(kLongest);
  const bool good = Replay(writer, steps, buffer);
  usb_close(writer);
  if (!good) std::fprintf(stderr, "a transfer brings something else than in the record\n");
  return good ? 0 : 1;
}
