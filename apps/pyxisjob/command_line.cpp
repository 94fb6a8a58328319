// The command line: what holds for every command, and the commands.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>

#include "job.h"
#include "platform/diagnostics.h"
#include "platform/files.h"
#include "platform/machine.h"
#include "platform/program_folder.h"
#include "shell/ground/app_state.h"
#include "version/version.h"

namespace pyxis::job {

namespace {

std::string ProgramFolderOrExit() {
  const ProgramFolder folder = RunnerFolder();
  if (folder.error.empty()) return folder.path;
  std::fprintf(stderr, "%s\n", folder.error.c_str());
  throw CLI::RuntimeError(kExitFailed);
}

void TakeOver(Job& job) {
  AppState& app = TheAppState();
  if (job.options.folder.empty()) job.options.folder = ProgramFolderOrExit();
  app.program.StartDirectory = std::filesystem::absolute(job.options.folder).lexically_normal().string();
  if (app.program.StartDirectory.size() > 1 && app.program.StartDirectory.back() == kPathSeparator)
    app.program.StartDirectory.pop_back();
  app.program.AppDir = app.program.StartDirectory + kPathSeparator;
  job.op.answer = job.options.yes;
  job.op.quiet = job.options.json;
  TheMachine().diagnostics = stderr;  // standard output is for results
  TheMachine().trace = job.options.trace ? stderr : nullptr;
}

}  // namespace

int RunCommandLine(Job& job, int argc, char** argv) {
  CLI::App app{"PyxisLoad without a window"};
  app.require_subcommand(1);
  app.fallthrough();
  app.set_version_flag("--version", std::string("pyxisjob ") + pyxis::kVersion);
  app.add_option("--folder", job.options.folder,
                 "program folder (default: $PYXISLOAD_FOLDER, else the current one if it is one, else the user's)")
      ->check(CLI::ExistingDirectory);
  app.add_flag("--json", job.options.json, "print one JSON object a line");
  app.add_option("--link", job.options.link, "the one transport to try")->check(CLI::IsMember({"vendor", "usb"}));
  app.add_flag("--trace", job.options.trace, "print a line for each transfer on standard error");
  auto* yes = app.add_flag("--yes", job.options.yes, "answer questions with Yes");
  app.add_flag("--no", job.options.no, "answer questions with No (the default)")->excludes(yes);
  app.parse_complete_callback([&job] { TakeOver(job); });
  AddConvert(app, job);
  AddIcs(app, job);
  AddWriter(app, job);
  AddLoad(app, job);
  AddTasks(app, job);
  AddInspections(app, job);
  AddProtect(app, job);
  AddSerial(app, job);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int code = app.exit(error);
    return code <= kExitFailed ? code : kExitUsage;
  }
  return job.exitCode;
}

}  // namespace pyxis::job
