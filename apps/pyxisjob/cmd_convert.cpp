#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "intake/convert.h"
#include "job.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"

namespace pyxis::job {

namespace {

struct ConvertArguments {
  ChipOptions chip;
  std::vector<std::string> files;
};

void ConvertOne(Job& job, const ChipOptions& chip, std::uint32_t code, const std::string& file) {
  const AppState& app = TheAppState();
  job.op.messages.clear();
  std::uint32_t optionValue = chip.optionValue;
  const ConversionResults results = ConvertFile({.ChipCode = code,
                                                 .SelectedChip = app.selection.SelectedChip,
                                                 .OptionValue = &optionValue,
                                                 .Path = file,
                                                 .SnMode = chip.choices.serial,
                                                 .ExhvIsp = chip.choices.exhvIsp,
                                                 .MassProduction = chip.choices.mass,
                                                 .ProductionLimitOn = chip.choices.limit > 0,
                                                 .ProductionLimitBcd = PackedDecimal(chip.choices.limit),
                                                 .IspProgram = chip.choices.isp,
                                                 .Tell = TellText});
  if (!results.Good()) job.exitCode = kExitFailed;
  const std::string checksum = Printf("%04X", app.conversion.ImageChecksum);
  if (job.options.json) {
    Print({{"file", file},
           {"result", results.result},
           {"code", static_cast<int>(results.code)},
           {"messages", job.op.messages},
           {"checksum", checksum},
           {"system_config", app.conversion.SystemConfigWord},
           {"dual_skip", app.conversion.DualSkip},
           {"image_unprotected", app.conversion.ImageUnprotected ? 1 : 0},
           {"used_length", app.conversion.UsedLength},
           {"partial_checksum", app.conversion.PartialChecksum},
           {"loaded_file", results.Good() ? results.LoadedFilePath : ""}});
  } else {
    std::printf("%s: %s, checksum %s\n", file.c_str(), results.Good() ? "converted" : "failed", checksum.c_str());
  }
}

}  // namespace

void AddConvert(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("convert", "convert program files into the two package files");
  auto arguments = std::make_shared<ConvertArguments>();
  AddChipOptions(*command, arguments->chip);
  command->add_option("FILE", arguments->files, "program files")->required();
  command->callback([&job, arguments] {
    TheAppState().writer.WriterModel = Model::Km48;
    const auto code = SelectChip(arguments->chip);
    if (!code) {
      job.exitCode = kExitUsage;
      return;
    }
    for (const std::string& file : arguments->files) ConvertOne(job, arguments->chip, *code, file);
  });
}

}  // namespace pyxis::job
