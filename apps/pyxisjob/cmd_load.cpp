#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "intake/convert.h"
#include "intake/load_file.h"
#include "job.h"
#include "link/identification.h"
#include "options/option_select.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/start_up.h"

namespace pyxis::job {

namespace {

struct LoadArguments {
  ChipOptions chip;
  std::string file;
};

// The buttons of Option Select 1 from the bits of --option-value; without that option the dialog counts as cancelled.
DialogEnd AnswerOptions(COptionSelectDlg& dialog, std::uint32_t optionValue) {
  for (int pair = 0; pair < 3; ++pair)
    dialog.Click(static_cast<COptionSelectDlg::Pair>(pair), (optionValue >> pair & 1) != 0 ? 0 : 1);
  dialog.OnOk();
  return DialogEnd::Ok;
}

bool Loaded(const Job& job) {
  const auto& told = job.op.messages;
  return !told.empty() && told.back() == "Loading Data Ok";
}

void Load(Job& job, const LoadArguments& arguments, bool optionsGiven) {
  if (!Connect(job)) return Report(job, "load", false);
  SettleModelAtSelection();
  if (!SelectChip(arguments.chip)) {
    job.exitCode = kExitUsage;
    CloseTransport();
    return;
  }
  if (optionsGiven)
    job.op.optionSelect = [&](COptionSelectDlg& d) { return AnswerOptions(d, arguments.chip.optionValue); };
  job.op.file = arguments.file;
  OnLoadFile();
  Report(job, "load", Loaded(job));
  CloseTransport();
}

}  // namespace

void AddLoad(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("load", "the whole Load File on the attached writer");
  auto arguments = std::make_shared<LoadArguments>();
  AddChipOptions(*command, arguments->chip);
  command->add_option("FILE", arguments->file, "program file")->required();
  command->callback([&job, arguments, command] {
    if (arguments->chip.ic.empty()) {
      std::fprintf(stderr, "load needs an IC of the catalogue: --ic LABEL\n");
      job.exitCode = kExitUsage;
      return;
    }
    Load(job, *arguments, command->count("--option-value") > 0);
  });
}

}  // namespace pyxis::job
