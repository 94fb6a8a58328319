#include "intake/converters/hex14.h"

#include "shell/app_state.h"

namespace pyxis {

void KeepPartialChecksum(std::uint32_t number) {
  AppState& app = TheAppState();
  if (number == kPartialChecksumWord) app.PartialChecksum = app.ImageChecksum & kWordMask;
}

void MaskChecksum() {
  AppState& app = TheAppState();
  app.ImageChecksum = app.ImageChecksum & kWordMask;
}

}  // namespace pyxis
