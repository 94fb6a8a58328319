#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "intake/package_files.h"
#include "job.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "options/option_select.h"
#include "options/set_protect.h"
#include "shell/ground/app_state.h"

namespace pyxis::job {

namespace {

// The writer's own fields start anew with each load.
bool WriterHolds(const std::array<std::uint8_t, kInfoBlockSize>& sent) {
  std::array<std::uint8_t, kInfoBlockSize> held{};
  ReadInfoBlock(held);
  return std::equal(sent.begin(), sent.begin() + Field::WriterStatus.offset, held.begin());
}

Outcome Set(Job& job, bool on) {
  if (!Allowed(job, MenuEntry::SetProtect)) return Refused(Reason::NothingLoaded);
  if (!job.icKnown) {
    job.op.Tell("the writer's job is of no known IC", kMessageCaption, MessageIcon::Warning);
    return Refused(Reason::NotSupported);
  }
  job.op.optionSelect = [on](COptionSelectDlg& dialog) {
    dialog.Click(COptionSelectDlg::Protection, on ? COptionSelectDlg::kSecondButton : COptionSelectDlg::kFirstButton);
    dialog.OnOk();
    return DialogEnd::Ok;
  };
  const Outcome outcome = OnSetProtect();
  if (outcome.Good() && !WriterHolds(TheAppState().writer.WriterInfoBlock)) return Failed(Reason::OptionNotArrived);
  return outcome;
}

}  // namespace

void AddProtect(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("protect", "change the protection of the writer's job");
  auto state = std::make_shared<std::string>();
  command->add_option("STATE", *state, "on or off")->required()->check(CLI::IsMember({"on", "off"}));
  command->callback([&job, state] {
    RunOnWriter(job, "protect", [&] {
      const Outcome outcome = Set(job, *state == "on");
      if (outcome.Good() && !job.options.json) std::printf("protection %s\n", state->c_str());
      return outcome;
    });
  });
}

}  // namespace pyxis::job
