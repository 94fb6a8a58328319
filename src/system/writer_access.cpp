#include "system/writer_access.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/text.h"
#include "platform/usb_host.h"

namespace pyxis {

namespace {

namespace fs = std::filesystem;

unsigned long Number(const fs::path& file, int base) {
  std::string text;
  std::ifstream(file) >> text;
  return std::strtoul(text.c_str(), nullptr, base);
}

}  // namespace

std::string MissingRightWords(const std::string& sysfs, const std::string& nodes) {
  std::error_code error;
  for (fs::directory_iterator entry(sysfs, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path& device = entry->path();
    if (Number(device / "idVendor", 16) != kWriterVendor || Number(device / "idProduct", 16) != kWriterProduct)
      continue;
    const std::string node =
        nodes + Printf("/%03lu/%03lu", Number(device / "busnum", 10), Number(device / "devnum", 10));
    if (access(node.c_str(), R_OK | W_OK) == 0) continue;
    return Printf(
        "A writer is plugged in, but you have no right to open it (%s). Sit at the machine itself or join the group "
        "plugdev, then plug the writer in again.",
        node.c_str());
  }
  return {};
}

}  // namespace pyxis
