#include "option_words.h"

#include <CLI/CLI.hpp>

#include "catalogue/chip_catalogue.h"
#include "job.h"
#include "options/fuse_panel.h"
#include "options/option_select.h"
#include "platform/text.h"

namespace pyxis::job {

namespace {

bool NamesAChoice(const OptionWords& given) {
  return given.protect || given.unprotect || given.fast || given.dual || given.clock32k || given.noClock32k;
}

// The first button of a pair is the one that its bit stands for.
DialogEnd Answer(COptionSelectDlg& dialog, const OptionWords& given) {
  const auto click = [&dialog](COptionSelectDlg::Pair pair, bool first) {
    dialog.Click(pair, first ? COptionSelectDlg::kFirstButton : COptionSelectDlg::kSecondButton);
  };
  if (given.value) {
    for (int pair = 0; pair < 3; ++pair)
      click(static_cast<COptionSelectDlg::Pair>(pair), (*given.value >> pair & 1) != 0);
  } else {
    click(COptionSelectDlg::Protection, given.unprotect);
    if (given.fast || given.dual) click(COptionSelectDlg::Mode, given.fast);
    if (given.clock32k || given.noClock32k) click(COptionSelectDlg::Clock, given.noClock32k);
  }
  dialog.OnOk();
  return DialogEnd::Ok;
}

}  // namespace

bool AnyWord(const OptionWords& given) { return NamesAChoice(given) || given.value; }

void AddOptionWords(CLI::App& command, OptionWords& given) {
  auto* protect = command.add_flag("--protect", given.protect, "chips come out protected");
  command.add_flag("--unprotect", given.unprotect, "chips come out unprotected")->excludes(protect);
  auto* fast = command.add_flag("--fast", given.fast, "Fast mode");
  command.add_flag("--dual", given.dual, "Dual mode")->excludes(fast);
  auto* clock = command.add_flag("--32k", given.clock32k, "32KHz enable");
  command.add_flag("--no-32k", given.noClock32k, "32KHz disable")->excludes(clock);
  command.add_option("--option-value", given.value, "all three by bits: 1 unprotect, 2 fast mode, 4 32KHz disable");
}

std::optional<std::string> WrongOptions(const ChipEntry& row, const OptionWords& given) {
  const bool words = NamesAChoice(given);
  if (!row.HasOptionDialog) {
    if (!words && !given.value) return std::nullopt;
    return Printf("%s has no options to choose", row.TypeLabel);
  }
  const bool full = row.ic->protection.panel == PanelKind::Full;
  if (given.value) {
    if (!words) return std::nullopt;
    return "--option-value stands in the place of --protect and the other words";
  }
  const bool mode = given.fast || given.dual, clock = given.clock32k || given.noClock32k;
  if (!full && (mode || clock)) return Printf("%s has only --protect and --unprotect to choose", row.TypeLabel);
  if ((given.protect || given.unprotect) && (!full || (mode && clock))) return std::nullopt;
  return Printf("%s needs --protect or --unprotect%s, or --option-value", row.TypeLabel,
                full ? ", --fast or --dual, --32k or --no-32k" : "");
}

void AnswerOptionsBy(Job& job, const OptionWords& given) {
  job.op.optionSelect = [&given](COptionSelectDlg& dialog) { return Answer(dialog, given); };
}

}  // namespace pyxis::job
