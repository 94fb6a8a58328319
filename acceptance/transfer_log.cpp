// Laid before a program with LD_PRELOAD, it keeps every bulk transfer that the program makes with the USB library, with
// its time, and writes them to the file named by TRANSFER_LOG when the program ends.
#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "transfer_record.h"

struct usb_dev_handle;

namespace {

std::int64_t Now() { return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1); }

// Room from the start, touched once: growing, and a page that the kernel must find first, would cost time between two
// transfers.
struct Log {
  Log() {
    bytes.resize(4 << 20);
    bytes.clear();
  }
  ~Log() {
    const char* path = std::getenv("TRANSFER_LOG");
    std::FILE* file = path == nullptr ? nullptr : std::fopen(path, "wb");
    if (file == nullptr) return;
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
  }
  void Add(const Transfer& transfer, const char* data) {
    const auto* head = reinterpret_cast<const char*>(&transfer);
    bytes.insert(bytes.end(), head, head + sizeof transfer);
    if (transfer.result > 0) bytes.insert(bytes.end(), data, data + transfer.result);
  }
  std::vector<char> bytes;
};

Log theLog;

using Call = int (*)(usb_dev_handle*, int, char*, int, int);

Call Find(const char* name) { return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name)); }

int Transferred(Call call, usb_dev_handle* handle, int endpoint, char* data, int count, int timeout) {
  Transfer transfer{endpoint, count, 0, 0, Now(), 0};
  transfer.result = call(handle, endpoint, data, count, timeout);
  transfer.ended = Now();
  theLog.Add(transfer, data);
  return transfer.result;
}

}  // namespace

extern "C" int usb_bulk_write(usb_dev_handle* handle, int endpoint, char* data, int count, int timeout) {
  static const Call call = Find("usb_bulk_write");
  return Transferred(call, handle, endpoint, data, count, timeout);
}

extern "C" int usb_bulk_read(usb_dev_handle* handle, int endpoint, char* data, int count, int timeout) {
  static const Call call = Find("usb_bulk_read");
  return Transferred(call, handle, endpoint, data, count, timeout);
}
