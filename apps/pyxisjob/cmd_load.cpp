#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <optional>

#include "catalogue/chip_catalogue.h"
#include "intake/load_file.h"
#include "job.h"
#include "options/fuse_panel.h"
#include "options/option_select.h"
#include "platform/text.h"

namespace pyxis::job {

namespace {

struct LoadArguments {
  std::string ic, file;
  Choices choices;
  // Option Select 1: by word, or all three pairs by the bits of a value.
  bool protect = false, unprotect = false, fast = false, dual = false, clock32k = false, noClock32k = false;
  std::optional<std::uint32_t> optionValue;
};

bool AnyWord(const LoadArguments& given) {
  return given.protect || given.unprotect || given.fast || given.dual || given.clock32k || given.noClock32k;
}

// Protection is never chosen by silence: what Option Select 1 asks for this IC must have been given, and nothing that
// it doesn't ask. The line for standard error, or nothing.
std::optional<std::string> OptionsMissing(const ChipEntry& row, const LoadArguments& given) {
  const bool words = AnyWord(given);
  if (!row.HasOptionDialog) {
    if (!words && !given.optionValue) return std::nullopt;
    return Printf("%s has no options to choose", row.TypeLabel);
  }
  const bool full = row.ic->protection.panel == PanelKind::Full;
  if (given.optionValue) {
    if (!words) return std::nullopt;
    return "--option-value stands in the place of --protect and the other words";
  }
  const bool mode = given.fast || given.dual, clock = given.clock32k || given.noClock32k;
  if (!full && (mode || clock)) return Printf("%s has only --protect and --unprotect to choose", row.TypeLabel);
  if ((given.protect || given.unprotect) && (!full || (mode && clock))) return std::nullopt;
  return Printf("%s needs --protect or --unprotect%s, or --option-value", row.TypeLabel,
                full ? ", --fast or --dual, --32k or --no-32k" : "");
}

// The first button of a pair is the one that its bit stands for: Unprotect, Fast mode, 32KHz disable.
DialogEnd AnswerOptions(COptionSelectDlg& dialog, const LoadArguments& given) {
  const auto click = [&dialog](COptionSelectDlg::Pair pair, bool first) { dialog.Click(pair, first ? 0 : 1); };
  if (given.optionValue) {
    for (int pair = 0; pair < 3; ++pair)
      click(static_cast<COptionSelectDlg::Pair>(pair), (*given.optionValue >> pair & 1) != 0);
  } else {
    click(COptionSelectDlg::Protection, given.unprotect);
    if (given.fast || given.dual) click(COptionSelectDlg::Mode, given.fast);
    if (given.clock32k || given.noClock32k) click(COptionSelectDlg::Clock, given.noClock32k);
  }
  dialog.OnOk();
  return DialogEnd::Ok;
}

Outcome Load(Job& job, const LoadArguments& given) {
  if (!SelectOnDevice(job, given.ic, given.choices)) return Refused(Reason::NotSupported);
  job.op.optionSelect = [&](COptionSelectDlg& dialog) { return AnswerOptions(dialog, given); };
  job.op.file = given.file;
  return OnLoadFile();
}

// The job that the writer held before is none of the line's; IC and checksum of the new one are known at the end.
Outcome RecordedLoad(Job& job, const LoadArguments& given) {
  LineEntry entry;
  entry.command = "load";
  entry.job.ic = KnownIc(given.ic)->ChipName;
  entry.file = given.file;
  if (!BeginLine(job, entry)) return Failed(Reason::NotWritable);
  const Outcome outcome = Load(job, given);
  const LineJob brought = outcome.Good() && job.record.IsOpen() ? JobOfBlock() : LineJob{};
  return EndLine(job, outcome, &brought) ? outcome : Failed(Reason::NotWritable);
}

void AddOptionWords(CLI::App& command, LoadArguments& given) {
  auto* protect = command.add_flag("--protect", given.protect, "chips come out protected");
  command.add_flag("--unprotect", given.unprotect, "chips come out unprotected")->excludes(protect);
  auto* fast = command.add_flag("--fast", given.fast, "Fast mode");
  command.add_flag("--dual", given.dual, "Dual mode")->excludes(fast);
  auto* clock = command.add_flag("--32k", given.clock32k, "32KHz enable");
  command.add_flag("--no-32k", given.noClock32k, "32KHz disable")->excludes(clock);
  command.add_option("--option-value", given.optionValue,
                     "all three by bits: 1 unprotect, 2 fast mode, 4 32KHz disable");
}

}  // namespace

void AddLoad(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("load", "the whole Load File on the attached writer");
  auto given = std::make_shared<LoadArguments>();
  command->add_option("--ic", given->ic, "IC by its label, such as QV8348 or QV8329_16")->required();
  AddChoices(*command, given->choices);
  AddOptionWords(*command, *given);
  AddRecord(*command, job);
  command->add_option("FILE", given->file, "program file")->required();
  command->callback([&job, given] {
    const ChipEntry* row = KnownIc(given->ic);
    const auto missing = row != nullptr ? OptionsMissing(*row, *given) : std::nullopt;
    if (missing) std::fprintf(stderr, "%s\n", missing->c_str());
    if (row == nullptr || missing) {
      job.exitCode = kExitUsage;
      return;
    }
    if (OpenRecord(job, "load")) RunOnWriter(job, "load", [&] { return RecordedLoad(job, *given); });
  });
}

}  // namespace pyxis::job
