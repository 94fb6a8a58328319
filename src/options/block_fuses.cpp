#include "options/block_fuses.h"

#include "catalogue/chip_catalogue.h"
#include "options/fuse_panel.h"
#include "shell/ground/app_state.h"

namespace pyxis {

void ShowFuses(const Protection& protection) {
  const std::uint8_t byte = TheAppState().writer.WriterInfoBlock[protection.byte];
  const auto bit = [&](int above) { return (byte >> (protection.bit + above) & 1) != 0; };
  const bool unprotected = bit(0) != (protection.protectedBy == ProtectedBy::SetBit);
  ShowOnPanel(protection.panel, unprotected, bit(1), bit(2));
}

void ShowFuseBitsOfBlock() {
  const Ic* ic = IcOfName(TheAppState().selection.SelectedChip);
  if (ic != nullptr && ic->protection.fromBlock) ShowFuses(ic->protection);
}

}  // namespace pyxis
