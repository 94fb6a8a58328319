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
  void (*run)();
  const char* okText;
};
constexpr TaskCommand kCommands[] = {
    {"auto", "blank check, program and verify", OnAuto, "Auto OK"},
    {"blank", "blank check", OnBlankCheck, "BlankCheck OK"},
    {"program", "program", OnProgram, "Program OK"},
    {"verify", "verify", OnVerify, "Verify OK"},
};

void Run(Job& job, const TaskCommand& command) {
  if (!Connect(job)) return Report(job, command.name, false);
  // The window greys these buttons.
  if (command.run != OnAuto && !TheMainControls()[ControlId::Program].enabled) {
    job.op.Tell("Only auto works in Mass Production Mode and with a Production Limit", kMessageCaption,
                MessageIcon::Warning);
  } else {
    command.run();
  }
  const auto& told = job.op.messages;
  Report(job, command.name, !told.empty() && told.back() == command.okText);
  CloseTransport();
}

}  // namespace

void AddTasks(CLI::App& app, Job& job) {
  for (const TaskCommand& command : kCommands)
    app.add_subcommand(command.name, command.help)->callback([&job, &command] { Run(job, command); });
}

}  // namespace pyxis::job
