// Commands that question the writer: compare, chip-info, read, self-test.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "intake/package_files.h"
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
void ReportLines(Job& job, const char* command, bool good, const char* member, const Lines& lines) {
  if (!job.options.json)
    for (const std::string& line : lines) std::printf("%s\n", line.c_str());
  Report(job, command, good, {{member, lines}});
}

void Compare(Job& job, const std::string& file) {
  if (!Connect(job)) return Report(job, "compare", false);
  Lines lines;
  if (Allowed(job, MenuEntry::CompareFile, "Compare File")) {
    job.op.file = file;
    job.op.downloadInfo = [&lines](CDownloadInfoDlg& dialog) {
      dialog.OnCompareFile();
      lines.assign(dialog.lines.begin(), dialog.lines.end());
      return DialogEnd::Cancel;
    };
    OnDownloadInfo();
  }
  ReportLines(job, "compare", !lines.empty() && lines.back().ends_with(" OK"), "lines", lines);
  CloseTransport();
}

void ChipInfo(Job& job) {
  if (!Connect(job)) return Report(job, "chip-info", false);
  Lines lines;
  bool read = false;
  if (Allowed(job, MenuEntry::ReadChipInfo, "Read Chip Info")) {
    job.op.chipInfo = [&](CReadChipInfoDlg& dialog) {
      read = dialog.readEnabled;
      if (read) dialog.OnRead();
      lines.assign(dialog.lines.begin(), dialog.lines.end());
      return DialogEnd::Cancel;
    };
    OnReadChipInfo();
  }
  ReportLines(job, "chip-info", read, "lines", lines);
  CloseTransport();
}

void Read(Job& job, const ChipOptions& chip) {
  if (!Connect(job)) return Report(job, "read", false);
  if (!chip.ic.empty() && !SelectChip(chip)) {
    job.exitCode = kExitUsage;
    CloseTransport();
    return;
  }
  if (chip.ic.empty() && !job.icKnown) {
    job.op.Tell("read needs an IC: the writer holds no job of a known one", kMessageCaption, MessageIcon::Warning);
    Report(job, "read", false);
  } else {
    OnRead();
    // A writer that couldn't be told the IC has read something else.
    const AppState& app = TheAppState();
    const bool good =
        job.op.messages == Lines{"Read OK"} && ChipNameOf(app.writer.WriterInfoBlock) == app.selection.SelectedChip;
    Report(job, "read", good, {{"loaded_file", app.conversion.LoadedFilePath}});
  }
  CloseTransport();
}

void SelfTest(Job& job) {
  if (!Connect(job)) return Report(job, "self-test", false);
  WriterTest();
  Lines lines;
  std::istringstream report(TheAppState().program.ReadyText);
  bool good = !TheAppState().program.ReadyText.empty();
  for (std::string line; std::getline(report, line);) {
    lines.push_back(line.substr(0, line.find_last_not_of(" \r") + 1));
    good = good && !lines.back().ends_with("Fail");
  }
  ReportLines(job, "self-test", good, "report", lines);
  CloseTransport();
}

}  // namespace

void AddInspections(CLI::App& app, Job& job) {
  CLI::App* compare = app.add_subcommand("compare", "compare a program file with what the writer holds");
  auto file = std::make_shared<std::string>();
  compare->add_option("FILE", *file, "program file")->required();
  compare->callback([&job, file] { Compare(job, *file); });

  app.add_subcommand("chip-info", "what the chip in the socket says about itself")->callback([&job] { ChipInfo(job); });

  CLI::App* read = app.add_subcommand("read", "read the chip in the socket into readdata.txt");
  auto chip = std::make_shared<ChipOptions>();
  read->add_option("--ic", chip->ic, "IC by its label, in the place of the job's; the writer then loses its job");
  read->callback([&job, chip] { Read(job, *chip); });

  app.add_subcommand("self-test", "check the voltages of the writer's boards (needs --yes)")->callback([&job] {
    SelfTest(job);
  });
}

}  // namespace pyxis::job
