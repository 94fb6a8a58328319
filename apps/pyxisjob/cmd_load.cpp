#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <optional>

#include "catalogue/chip_catalogue.h"
#include "intake/load_file.h"
#include "job.h"
#include "option_words.h"

namespace pyxis::job {

namespace {

struct LoadArguments {
  std::string ic, file;
  Choices choices;
  OptionWords options;
};

Outcome Load(Job& job, const LoadArguments& given) {
  if (!SelectOnDevice(job, given.ic, given.choices)) return Refused(Reason::NotSupported);
  AnswerOptionsBy(job, given.options);
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
  const LineJob brought = outcome.Good() && job.record.IsOpen() ? JobOfPackage() : LineJob{};
  return EndLine(job, outcome, &brought) ? outcome : Failed(Reason::NotWritable);
}

}  // namespace

void AddLoad(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("load", "the whole Load File on the attached writer");
  auto given = std::make_shared<LoadArguments>();
  command->add_option("--ic", given->ic, "IC by its label, such as QV8348 or QV8329_16")->required();
  AddChoices(*command, given->choices);
  AddOptionWords(*command, given->options);
  AddRecord(*command, job);
  command->add_option("FILE", given->file, "program file")->required();
  command->callback([&job, given] {
    const ChipEntry* row = KnownIc(given->ic);
    const auto wrong = row != nullptr ? WrongOptions(*row, given->options) : std::nullopt;
    if (wrong) std::fprintf(stderr, "%s\n", wrong->c_str());
    if (row == nullptr || wrong) {
      job.exitCode = kExitUsage;
      return;
    }
    if (OpenRecord(job, "load")) RunOnWriter(job, "load", [&] { return RecordedLoad(job, *given); });
  });
}

}  // namespace pyxis::job
