#include "options/set_protect.h"

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "options/block_fuses.h"
#include "options/fuse_panel.h"
#include "options/option_select.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"
#include "shell/ground/selection_guard.h"

namespace pyxis {

namespace {

// With no word known, -1, setting a bit leaves -1; clearing one leaves a 16-bit word.
void ChangeConfigWord(int bit, bool set) {
  std::int32_t& word = TheAppState().conversion.SystemConfigWord;
  word = set ? word | 1 << bit : word & 0xFFFF & ~(1 << bit);
}

void ChangeBit(const Protection& place, bool protect) {
  std::uint8_t& byte = TheAppState().writer.WriterInfoBlock[place.byte];
  const bool set = protect == (place.protectedBy == ProtectedBy::SetBit);
  byte = static_cast<std::uint8_t>(set ? byte | 1 << place.bit : byte & ~(1 << place.bit));
  if (place.inConfigWord) ChangeConfigWord(place.bit + 8, set);
}

// After a start on a job whose IC isn't found by its bare name the row is another IC's, and so would be the bit; the
// job is another IC's while none has been loaded since IC selection.
bool JobIsTheRows(const ChipEntry& row) {
  const AppState& app = TheAppState();
  return EqualsNoCase(row.ChipName, app.selection.SelectedChip) &&
         ChipNameOf(app.writer.WriterInfoBlock) == app.selection.SelectedChip;
}

// The block as the option package, into the file and from there to the writer.
Outcome SendOptionArea() {
  Outcome outcome = Failed(Reason::NotWritable);
  OpenPackageLoad();
  if (WriteWholeFile(OptionPackagePath(), TheAppState().writer.WriterInfoBlock)) {
    const Outcome sent = DownloadPackageFile(OptionPackagePath(), area::kOption);
    outcome = sent.Good() ? kGood : Failed(Reason::OptionNotArrived);
  } else {
    TellOpenFail(OptionPackagePath());
  }
  CloseLoad();
  return outcome;
}

}  // namespace

Outcome OnSetProtect() {
  AppState& app = TheAppState();
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const ChipEntry& row = Row(app.selection.SeriesIndex, app.selection.TypeIndex);
  if (!JobIsTheRows(row)) return RefuseOtherChip();
  COptionSelectDlg dialog;
  dialog.choice[COptionSelectDlg::Mode] = dialog.choice[COptionSelectDlg::Clock] = COptionSelectDlg::kNoButton;
  dialog.OnInitDialog();
  if (TheMachine().op->RunDialog(dialog) != DialogEnd::Ok) return Cancelled();
  if (!JobIsTheRows(row)) return RefuseOtherChip();  // another writer has come under the dialog
  ResetFusePanel();
  const Protection& protection = row.ic->protection;
  ChangeBit(protection, dialog.choice[COptionSelectDlg::Protection] == COptionSelectDlg::kSecondButton);
  if (protection.panel != PanelKind::None) ShowFuses(protection);
  return SendOptionArea();
}

}  // namespace pyxis
