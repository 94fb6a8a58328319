#include "options/fuse_panel.h"

#include "catalogue/chip_catalogue.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis {

namespace {

struct Pair {
  ControlId first, second;
};
constexpr Pair kProtection{ControlId::Unprotect, ControlId::Protect};
constexpr Pair kMode{ControlId::FastMode, ControlId::DualMode};
constexpr Pair kClock{ControlId::Clock32kDisable, ControlId::Clock32kEnable};

void ShowPair(const Pair& pair, bool visible) {
  ShowControl(pair.first, visible);
  ShowControl(pair.second, visible);
}

void ResetPair(const Pair& pair, bool visible) {
  ShowPair(pair, visible);
  if (!visible) return;
  CheckControl(pair.first, false);
  CheckControl(pair.second, false);
}

void SetPair(const Pair& pair, std::optional<bool> first) {
  ShowPair(pair, first.has_value());
  if (!first) return;
  CheckControl(pair.first, *first);
  CheckControl(pair.second, !*first);
}

}  // namespace

void ResetFusePanel() {
  const AppState& app = TheAppState();
  const PanelKind kind = Row(app.selection.SeriesIndex, app.selection.TypeIndex).ic->protection.panel;
  ResetPair(kProtection, kind != PanelKind::None);
  ResetPair(kMode, kind == PanelKind::Full);
  ResetPair(kClock, kind == PanelKind::Full);
}

void SetFusePanel(std::optional<bool> protection, std::optional<bool> mode, std::optional<bool> clock) {
  SetPair(kProtection, protection);
  SetPair(kMode, mode);
  SetPair(kClock, clock);
}

void ShowOnPanel(PanelKind kind, bool protection, bool mode, bool clock) {
  if (kind == PanelKind::Full) {
    SetFusePanel(protection, mode, clock);
  } else {
    SetFusePanel(protection);
  }
}

void HideFusePanel() { SetFusePanel({}); }

}  // namespace pyxis
