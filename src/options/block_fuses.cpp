#include "options/block_fuses.h"

#include <string_view>

#include "options/fuse_panel.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr int kConfigHigh = 36;
constexpr int kConfigLow = 37;
constexpr int kProtect = 43;

struct BlockFuse {
  std::string_view chip;
  std::size_t byte;
  bool inverse;  // bit 0 set means protected
  bool full;     // bits 1 and 2 are the mode and the clock
};

constexpr BlockFuse kBlockFuses[] = {
    {"QVL13", kConfigHigh, false, false}, {"QV4105", kConfigHigh, false, false}, {"QVL07", kConfigHigh, false, false},
    {"QV4106", kConfigLow, false, false}, {"QV4103", kConfigLow, false, false},  {"QV4206", kProtect, true, false},
    {"QV4207", kProtect, true, false},    {"QV4205", kProtect, true, false},     {"QV4107", kProtect, true, false},
    {"QV4102", kProtect, true, false},    {"QV4204", kProtect, true, false},     {"QV4201", kProtect, true, false},
    {"QV4203", kProtect, true, false},    {"QV4301", kProtect, true, false},     {"QV4104", kProtect, false, false},
    {"QVL04", kConfigHigh, false, true},  {"QVL05", kConfigHigh, false, true},   {"QVL06", kConfigHigh, false, true},
};

}  // namespace

void ShowFuseBitsOfBlock() {
  const AppState& app = TheAppState();
  for (const BlockFuse& fuse : kBlockFuses) {
    if (fuse.chip != app.selection.SelectedChip) continue;
    const std::uint8_t byte = app.writer.WriterInfoBlock[fuse.byte];
    const auto bit = [byte](int number) { return byte >> number & 1; };
    SetFusePanel(fuse.inverse ? 1 - bit(0) : bit(0), fuse.full ? bit(1) : -1, fuse.full ? bit(2) : -1);
  }
}

}  // namespace pyxis
