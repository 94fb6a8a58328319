#include "options/block_fuses.h"

#include "catalogue/chip_catalogue.h"
#include "options/fuse_panel.h"
#include "shell/ground/app_state.h"

namespace pyxis {

void ShowFuses(const Protection& protection) {
  const std::uint8_t byte = TheAppState().writer.WriterInfoBlock[protection.byte];
  const auto bit = [&](int above) { return byte >> (protection.bit + above) & 1; };
  const bool isProtected = (bit(0) != 0) == (protection.protectedBy == ProtectedBy::SetBit);
  const bool full = protection.panel == PanelKind::Full;
  SetFusePanel(isProtected ? 0 : 1, full ? bit(1) : -1, full ? bit(2) : -1);
}

void ShowFuseBitsOfBlock() {
  const Ic* ic = IcOfName(TheAppState().selection.SelectedChip);
  if (ic != nullptr && ic->protection.fromBlock) ShowFuses(ic->protection);
}

}  // namespace pyxis
