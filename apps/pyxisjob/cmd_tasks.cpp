#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "intake/package_files.h"
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

// The writer counts a series by itself, whichever road it came by: which serial it burns now, nobody could write down.
bool BurnsUnknownSerial(const Job& job, const TaskCommand& command) {
  const std::uint8_t road = SerialRoadOf(TheAppState().writer.WriterInfoBlock);
  return job.record.IsOpen() && (road == kSerialBySelection || road == kSerialByMenu) &&
         (command.button == ControlId::Auto || command.button == ControlId::Program);
}

Outcome Perform(Job& job, const TaskCommand& command) {
  if (TheMainControls()[command.button].enabled) return command.run();
  job.op.Tell("Only auto works in Mass Production Mode and with a Production Limit", kMessageCaption,
              MessageIcon::Warning);
  return Refused(Reason::NotSupported);
}

Outcome Run(Job& job, const TaskCommand& command) {
  if (BurnsUnknownSerial(job, command)) {
    job.op.Tell("The job has serial numbers: only the command serial can record them", kMessageCaption,
                MessageIcon::Warning);
    return Refused(Reason::NotSupported);
  }
  LineEntry entry;
  entry.command = command.name;
  if (!BeginLine(job, entry)) return Failed(Reason::NotWritable);
  const Outcome outcome = Perform(job, command);
  return EndLine(job, outcome) ? outcome : Failed(Reason::NotWritable);
}

}  // namespace

void AddTasks(CLI::App& app, Job& job) {
  for (const TaskCommand& command : kCommands) {
    CLI::App* added = app.add_subcommand(command.name, command.help);
    AddRecord(*added, job);
    added->callback([&job, &command] {
      if (OpenRecord(job, command.name)) RunOnWriter(job, command.name, [&] { return Run(job, command); });
    });
  }
}

}  // namespace pyxis::job
