#include "folder.h"
#include "link/writer_commands.h"
#include "operations/firmware.h"
#include "platform/byte_order.h"
#include "platform/text.h"

namespace pyxis::folder {

namespace {
constexpr std::uint8_t kVersion = 1;
}

Bytes MakeFirmware(Model model, std::uint32_t firmwareCode) {
  Filler filler(Printf("firmware %d %u", static_cast<int>(model), firmwareCode));
  Bytes image(kFirmwareImageSize);
  for (std::uint8_t& byte : image) byte = static_cast<std::uint8_t>(filler.Next());
  image[address::kModel] = RegisterOf(model);
  StoreBe16(&image[address::kFirmwareCode], firmwareCode);
  image[address::kFirmwareVersion] = kVersion;
  StoreBe16(&image[address::kFirmwareLevel], kHostFirmwareLevel);
  return image;
}

}  // namespace pyxis::folder
