// The writer's firmware image: load with read-back, selection for an IC, and the update command.
#pragma once

#include <cstdint>
#include <string>

#include "shell/ground/outcome.h"

namespace pyxis {

// Good when the read-back equals the image, else FirmwareFailed, which FirmwareLoadFailed keeps. A file that can't be
// opened or is shorter than an image counts as a failed load, and nothing is sent.
Outcome LoadFirmware(const std::string& path, bool sendStartByte);

// The menu command Update F/W. Cancelled: NoFile; refused: NotReadable, also for an image of the other model; failed:
// FirmwareFailed.
Outcome OnUpdateFirmware();

// Sends the image that the IC needs unless the writer holds it. FirmwareFailed: an image that is missing or can't be
// read, one that didn't arrive, or FirmwareLoadFailed of an earlier load that nothing has mended.
Outcome SelectFirmware(std::uint32_t chipCode);

}  // namespace pyxis
