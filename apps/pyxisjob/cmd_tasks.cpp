#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "job.h"
#include "link/identification.h"
#include "operations/tasks.h"
#include "shell/ground/app_state.h"
#include "shell/ground/main_controls.h"

namespace pyxis::job {

namespace {

struct TaskCommand {
  const char* name;
  const char* help;
  Outcome (*run)();
  ControlId button;
};
constexpr TaskCommand kCommands[] = {
    {"auto", "blank check, program and verify", OnAuto, ControlId::Auto},
    {"blank", "blank check", OnBlankCheck, ControlId::BlankCheck},
    {"program", "program", OnProgram, ControlId::Program},
    {"verify", "verify", OnVerify, ControlId::Verify},
};

Outcome Run(Job& job, const TaskCommand& command) {
  if (TheMainControls()[command.button].enabled) return command.run();
  job.op.Tell("Only auto works in Mass Production Mode and with a Production Limit", kMessageCaption,
              MessageIcon::Warning);
  return Refused(Reason::NotSupported);
}

}  // namespace

void AddTasks(CLI::App& app, Job& job) {
  for (const TaskCommand& command : kCommands)
    app.add_subcommand(command.name, command.help)->callback([&job, &command] {
      RunOnWriter(job, command.name, [&] { return Run(job, command); });
    });
}

}  // namespace pyxis::job
