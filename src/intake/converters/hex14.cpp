#include "intake/converters/hex14.h"

#include "shell/ground/app_state.h"

namespace pyxis {

void KeepPartialChecksum(std::uint32_t number) {
  AppState& app = TheAppState();
  if (number == kPartialChecksumWord) app.conversion.PartialChecksum = app.conversion.ImageChecksum & kWordMask;
}

void MaskChecksum() {
  AppState& app = TheAppState();
  app.conversion.ImageChecksum = app.conversion.ImageChecksum & kWordMask;
}

}  // namespace pyxis
