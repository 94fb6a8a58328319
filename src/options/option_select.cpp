#include "options/option_select.h"

#include <algorithm>

#include "options/fuse_panel.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

constexpr std::uint32_t kUnprotectBit = 1;
constexpr std::uint32_t kFastModeBit = 2;
constexpr std::uint32_t kClock32kDisableBit = 4;

std::uint32_t BitIfFirst(const COptionSelectDlg& dialog, COptionSelectDlg::Pair pair, std::uint32_t bit) {
  return dialog.choice[pair] == COptionSelectDlg::kFirstButton ? bit : 0;
}

void TakeChoices(const COptionSelectDlg& dialog, OptionChoice effect) {
  const std::uint32_t unprotect = BitIfFirst(dialog, COptionSelectDlg::Protection, kUnprotectBit);
  std::uint32_t& value = TheAppState().selection.OptionValue;
  switch (effect) {
    case OptionChoice::None:
    case OptionChoice::Smart:
      break;
    case OptionChoice::UnprotectAlone:
      value = unprotect;
      break;
    case OptionChoice::UnprotectBit:
      value |= unprotect;
      break;
    case OptionChoice::AllBits:
      value |= unprotect | BitIfFirst(dialog, COptionSelectDlg::Mode, kFastModeBit) |
               BitIfFirst(dialog, COptionSelectDlg::Clock, kClock32kDisableBit);
      break;
  }
}

}  // namespace

void COptionSelectDlg::OnInitDialog() { std::copy(std::begin(choice), std::end(choice), std::begin(shown_)); }

void COptionSelectDlg::Click(Pair pair, int button) {
  shown_[pair] = button;
  flag[pair] = button == kFirstButton;
  Changed();
}

void COptionSelectDlg::OnOk() { std::copy(std::begin(shown_), std::end(shown_), std::begin(choice)); }

void ChooseOptions(const ChipEntry& row) {
  TheAppState().selection.OptionValue = kDefaultOptionValue;
  if (!row.HasOptionDialog) return;
  const Ic& ic = *row.ic;
  const bool full = ic.protection.panel == PanelKind::Full;
  COptionSelectDlg dialog;
  if (!full)
    dialog.choice[COptionSelectDlg::Mode] = dialog.choice[COptionSelectDlg::Clock] = COptionSelectDlg::kNoButton;
  dialog.OnInitDialog();
  if (TheMachine().op->RunDialog(dialog) == DialogEnd::Ok) TakeChoices(dialog, ic.options);
  ShowOnPanel(ic.protection.panel, dialog.flag[COptionSelectDlg::Protection], dialog.flag[COptionSelectDlg::Mode],
              dialog.flag[COptionSelectDlg::Clock]);
}

}  // namespace pyxis
