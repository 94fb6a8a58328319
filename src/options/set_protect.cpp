#include "options/set_protect.h"

#include <string_view>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "options/fuse_panel.h"
#include "options/option_select.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/operator.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis {

namespace {

enum class Panel { None, Bit, Inverse, Full };

// Where an IC keeps its protection. A configuration bit is mirrored in SystemConfigWord, whose high byte byte 36 is.
struct ProtectBit {
  std::size_t byte;
  int bit;
  bool setProtects;  // Protect sets the bit; else it clears it
  bool inConfig;
  Panel panel;
};

constexpr ProtectBit kConfigHighBit{36, 0, false, false, Panel::Bit};
constexpr ProtectBit kConfigLowBit{37, 0, false, false, Panel::Bit};
constexpr ProtectBit kFullPanelBit{36, 0, false, false, Panel::Full};
constexpr ProtectBit kProtectByteBit{43, 0, true, false, Panel::Inverse};
constexpr ProtectBit kFlashBit{36, 7, true, true, Panel::None};
constexpr ProtectBit kMultiTimeBit{36, 5, false, true, Panel::None};
constexpr ProtectBit kOtherBit{36, 5, true, true, Panel::None};

struct ProtectRow {
  std::string_view chip;
  const ProtectBit& bit;
};
constexpr ProtectRow kRows[] = {
    {"QVL13", kConfigHighBit},   {"QV4105", kConfigHighBit},  {"QVL07", kConfigHighBit},   {"QV4106", kConfigLowBit},
    {"QV4103", kConfigLowBit},   {"QVL04", kFullPanelBit},    {"QVL05", kFullPanelBit},    {"QVL06", kFullPanelBit},
    {"QV4101", kProtectByteBit}, {"QV4107", kProtectByteBit}, {"QV4201", kProtectByteBit}, {"QV4203", kProtectByteBit},
    {"QV4204", kProtectByteBit}, {"QV4205", kProtectByteBit}, {"QV4206", kProtectByteBit}, {"QV4207", kProtectByteBit},
    {"QV8101", kFlashBit},       {"QV8102", kFlashBit},       {"QV8103", kFlashBit},       {"QV8104", kFlashBit},
    {"QV8105", kFlashBit},       {"QV8106", kFlashBit},       {"QV8108", kFlashBit},       {"QV8111", kFlashBit},
    {"QV8113", kFlashBit},       {"QV8115", kFlashBit},       {"QV8117", kFlashBit},       {"QV8119", kFlashBit},
    {"QV8120", kFlashBit},       {"QV8121", kFlashBit},       {"QV8122", kFlashBit},       {"QV8202", kMultiTimeBit},
    {"QV8301", kMultiTimeBit},   {"QV8302", kMultiTimeBit},   {"QV8303", kMultiTimeBit},   {"QV8304", kMultiTimeBit},
    {"QV8305", kMultiTimeBit},   {"QV8306", kMultiTimeBit},   {"QV8307", kMultiTimeBit},   {"QV8309", kMultiTimeBit},
    {"QV8310", kMultiTimeBit},   {"QV8311", kMultiTimeBit},   {"QV8312", kMultiTimeBit},   {"QV8315", kMultiTimeBit},
    {"QV8316", kMultiTimeBit},   {"QV8317", kMultiTimeBit},   {"QV8318", kMultiTimeBit},   {"QV8319", kMultiTimeBit},
    {"QV8321", kMultiTimeBit},   {"QV8322", kMultiTimeBit},   {"QVL09", kMultiTimeBit},    {"QVL10", kMultiTimeBit},
    {"QVL11", kMultiTimeBit},    {"QVL12", kMultiTimeBit},
};

const ProtectBit& BitOf(std::string_view chip) {
  for (const ProtectRow& row : kRows)
    if (row.chip == chip) return row.bit;
  return kOtherBit;
}

// With no word known, -1, setting a bit leaves -1; clearing one leaves a 16-bit word.
void ChangeConfigWord(int bit, bool set) {
  std::int32_t& word = TheAppState().conversion.SystemConfigWord;
  word = set ? word | 1 << bit : word & 0xFFFF & ~(1 << bit);
}

void ChangeBit(const ProtectBit& place, bool protect) {
  std::uint8_t& byte = TheAppState().writer.WriterInfoBlock[place.byte];
  const bool set = protect == place.setProtects;
  byte = static_cast<std::uint8_t>(set ? byte | 1 << place.bit : byte & ~(1 << place.bit));
  if (place.inConfig) ChangeConfigWord(place.bit + 8, set);
  const auto bit = [byte](int number) { return byte >> number & 1; };
  switch (place.panel) {
    case Panel::None:
      break;
    case Panel::Bit:
      SetFusePanel(bit(0), -1, -1);
      break;
    case Panel::Inverse:
      SetFusePanel(1 - bit(0), -1, -1);
      break;
    case Panel::Full:
      SetFusePanel(bit(0), bit(1), bit(2));
      break;
  }
}

Outcome SendOptionArea() {
  Outcome outcome = Failed(Reason::NotWritable);
  StartTask(task::kOpenPackageLoad);
  SendControl(control::kBeginLoad);
  if (WriteWholeFile(OptionPackagePath(), TheAppState().writer.WriterInfoBlock)) {
    outcome = DownloadPackageFile(OptionPackagePath(), area::kOption) ? kGood : Failed(Reason::OptionNotArrived);
  } else {
    TheMachine().op->Tell(Printf("Open Fail ! (%s)", OptionPackagePath().c_str()), kPlainCaption);
  }
  SetWriterMode(mode::kIdle);
  SendControl(control::kEndLoad);
  return outcome;
}

}  // namespace

Outcome OnSetProtect() {
  AppState& app = TheAppState();
  ReadInfoBlock(app.writer.WriterInfoBlock);
  const ChipEntry& row = Row(app.selection.SeriesIndex, app.selection.TypeIndex);
  // After a start on a job whose IC isn't found by its bare name the row is another IC's, and so would be the bit.
  if (!EqualsNoCase(row.ChipName, app.selection.SelectedChip)) {
    TheMachine().op->Tell("HW and SW Chip Name is discordant", kMessageCaption, MessageIcon::Warning);
    return Refused(Reason::OtherChip);
  }
  COptionSelectDlg dialog;
  dialog.choice[COptionSelectDlg::Mode] = dialog.choice[COptionSelectDlg::Clock] = -1;
  dialog.OnInitDialog();
  if (TheMachine().op->RunDialog(dialog) != DialogEnd::Ok) return Cancelled();
  ResetFusePanel();
  ChangeBit(BitOf(row.ChipName), dialog.choice[COptionSelectDlg::Protection] == 1);
  return SendOptionArea();
}

}  // namespace pyxis
