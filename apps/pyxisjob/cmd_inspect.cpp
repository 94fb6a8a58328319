// Commands that question the writer: compare, chip-info, read, self-test.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "job.h"
#include "link/identification.h"
#include "operations/chip_info.h"
#include "operations/compare_file.h"
#include "operations/read_chip.h"
#include "operations/self_test.h"
#include "shell/ground/app_state.h"

namespace pyxis::job {

namespace {

using Lines = std::vector<std::string>;

// The lines as a member of the result, or on standard output.
void ReportLines(Job& job, const char* command, const Outcome& outcome, const char* member, const Lines& lines) {
  if (!job.options.json)
    for (const std::string& line : lines) std::printf("%s\n", line.c_str());
  Report(job, command, outcome, {{member, lines}});
}

// Runs a command whose result is lines of text.
void RunForLines(Job& job, const char* command, const char* member, const std::function<Outcome(Lines&)>& run) {
  if (!Connect(job)) return Report(job, command, Failed(Reason::NotReadable));
  Lines lines;
  Outcome outcome = run(lines);
  if (outcome.Good() && !StillAnswers(job)) outcome = Failed(Reason::NotReadable);
  ReportLines(job, command, outcome, member, lines);
  CloseTransport();
}

Outcome Compare(Job& job, const std::string& file, Lines& lines) {
  Outcome outcome = Refused(Reason::NothingLoaded);
  if (!Allowed(job, MenuEntry::CompareFile)) return outcome;
  job.op.file = file;
  job.op.downloadInfo = [&](CDownloadInfoDlg& dialog) {
    outcome = dialog.OnCompareFile();
    lines.assign(dialog.lines.begin(), dialog.lines.end());
    return DialogEnd::Cancel;
  };
  OnDownloadInfo();
  return outcome;
}

Outcome ChipInfo(Job& job, Lines& lines) {
  Outcome outcome = Refused(Reason::NotSupported);
  if (!Allowed(job, MenuEntry::ReadChipInfo)) return outcome;
  job.op.chipInfo = [&](CReadChipInfoDlg& dialog) {
    outcome = dialog.OnRead();
    lines.assign(dialog.lines.begin(), dialog.lines.end());
    return DialogEnd::Cancel;
  };
  OnReadChipInfo();
  return outcome;
}

Outcome ReadWhileAnswering(Job& job) {
  const Outcome outcome = OnRead();
  return outcome.Good() && !StillAnswers(job) ? Failed(Reason::NotReadable) : outcome;
}

void Read(Job& job, const std::string& ic) {
  if (!Connect(job)) return Report(job, "read", Failed(Reason::NotReadable));
  Outcome outcome = Refused(Reason::NotSupported);
  if (ic.empty() && !job.icKnown) {
    job.op.Tell("read needs an IC: the writer holds no job of a known one", kMessageCaption, MessageIcon::Warning);
  } else if (ic.empty() || SelectOnDevice(job, ic, {})) {
    outcome = ReadWhileAnswering(job);
  }
  Report(job, "read", outcome, {{"loaded_file", TheAppState().conversion.LoadedFilePath}});
  CloseTransport();
}

Outcome SelfTest(Lines& lines) {
  const Outcome outcome = OnWriterTest();
  std::istringstream report(TheAppState().program.ReadyText);
  for (std::string line; std::getline(report, line);) lines.push_back(line.substr(0, line.find_last_not_of(" \r") + 1));
  return outcome;
}

}  // namespace

void AddInspections(CLI::App& app, Job& job) {
  CLI::App* compare = app.add_subcommand("compare", "compare a program file with what the writer holds");
  auto file = std::make_shared<std::string>();
  compare->add_option("FILE", *file, "program file")->required();
  compare->callback(
      [&job, file] { RunForLines(job, "compare", "lines", [&](Lines& lines) { return Compare(job, *file, lines); }); });

  app.add_subcommand("chip-info", "what the chip in the socket says about itself")->callback([&job] {
    RunForLines(job, "chip-info", "lines", [&](Lines& lines) { return ChipInfo(job, lines); });
  });

  CLI::App* read = app.add_subcommand("read", "read the chip in the socket into readdata.txt");
  auto ic = std::make_shared<std::string>();
  read->add_option("--ic", *ic, "IC by its label, in the place of the job's; the writer then loses its job");
  read->callback([&job, ic] {
    if (ic->empty() || KnownIc(*ic) != nullptr) {
      Read(job, *ic);
    } else {
      job.exitCode = kExitUsage;
    }
  });

  app.add_subcommand("self-test", "check the voltages of the writer's boards (needs --yes)")->callback([&job] {
    RunForLines(job, "self-test", "report", SelfTest);
  });
}

}  // namespace pyxis::job
