#include <algorithm>
#include <vector>

#include "intake/file_readers.h"
#include "platform/files.h"

namespace pyxis {

namespace {

constexpr std::size_t kLargestFile = 256;
constexpr std::size_t kBytesTaken = 255;
constexpr std::size_t kNameField = 13;

}  // namespace

int ReadEepromBin(const std::string& sourcePath, const std::string& imagePath, std::string_view name,
                  const Report& tell) {
  const auto source = ReadWholeFile(sourcePath);
  if (!source) {
    tell("Open bin file failed!");
    return 0;
  }
  if (source->size() > kLargestFile) {
    tell("bin file Length over 256 Byte");
    return 0;
  }
  std::vector<std::uint8_t> image(name.begin(), name.end());
  image.resize(kNameField);
  image.insert(image.end(), {0x07, 0x82});
  for (std::size_t i = 0; i < kBytesTaken; ++i) {
    image.push_back(0x18);
    image.push_back(i < source->size() ? (*source)[i] : 0);
  }
  // The caller finds a missing image when it opens it.
  if (!WriteWholeFile(imagePath, image)) tell("Create bin file failed!");
  return 1;
}

}  // namespace pyxis
