#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>

#include "catalogue/chip_catalogue.h"
#include "catalogue/ic_select.h"
#include "intake/converters/dispatch.h"
#include "job.h"
#include "platform/program_folder.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis::job {

void AddChoices(CLI::App& command, Choices& choices) {
  command.add_flag("--sn", choices.serial, "serial numbers, from serial.txt in the program folder");
  command.add_flag("--exhv-isp", choices.exhvIsp, WithoutMnemonic(CIcSelectDlg::kExhvIspCaption));
  command.add_flag("--isp", choices.isp, WithoutMnemonic(CIcSelectDlg::kIspCaption));
  command.add_flag("--mass", choices.mass, WithoutMnemonic(CIcSelectDlg::kMassProductionCaption));
  command.add_option("--limit", choices.limit, "Production Limit, a number of ICs")
      ->check(CLI::Range(1, kLargestLimit));
}

void AddChipOptions(CLI::App& command, ChipOptions& chip) {
  auto* ic = command.add_option("--ic", chip.ic, "IC by its label, such as QV8348 or QV8329_16");
  command.add_option("--code", chip.code, "IC by its number (decimal, or hexadecimal with 0x)")->excludes(ic);
  command.add_option("--model", chip.model, "writer model")->check(CLI::IsMember({kNameKm48, kNameKm49}));
  command.add_option("--hw", chip.hw, "template folder")->check(CLI::IsMember({kHwFolder10, kHwFolder11}));
  command.add_option("--chip", chip.chip, "selected chip, where it differs from the label's IC");
  command.add_option("--option-value", chip.optionValue, "protection choices, 0x60 without a choice");
  AddChoices(command, chip.choices);
}

std::optional<std::uint32_t> SelectChip(const ChipOptions& chip) {
  AppState& app = TheAppState();
  std::uint32_t code = 0;
  std::string name = chip.chip;
  if (!chip.ic.empty()) {
    if (FindChip(chip.ic, app.selection.SeriesIndex, app.selection.TypeIndex) == 0) {
      TellUnknownIc(chip.ic);
      return std::nullopt;
    }
    const ChipEntry& row = Row(app.selection.SeriesIndex, app.selection.TypeIndex);
    code = row.ChipCode;
    app.selection.HasSmartOption = row.HasSmartOption;
    if (name.empty()) name = row.ChipName;
  } else {
    char* end = nullptr;
    const unsigned long number = std::strtoul(chip.code.c_str(), &end, 0);
    if (chip.code.empty() || *end != '\0') {
      std::fprintf(stderr, "an IC is needed: --ic LABEL or --code NUMBER\n");
      return std::nullopt;
    }
    code = static_cast<std::uint32_t>(number);
    if (FindConverter(code) == nullptr) {
      std::fprintf(stderr, "%s is no known IC's code; pyxisjob ics lists them\n", chip.code.c_str());
      return std::nullopt;
    }
  }
  if (!chip.model.empty()) app.writer.WriterModel = chip.model == kNameKm48 ? Model::Km48 : Model::Km49;
  if (!chip.hw.empty()) app.writer.HwFolder = chip.hw;
  app.selection.SelectedChip = name;
  app.selection.ChipNameText = name;
  app.selection.SnMode = chip.choices.serial;
  app.selection.ExhvIsp = chip.choices.exhvIsp;
  app.selection.IspProgram = chip.choices.isp;
  app.selection.MassProduction = chip.choices.mass ? MassMode::On : MassMode::Off;
  app.selection.ProductionLimitOn = chip.choices.limit > 0;
  app.selection.ProductionLimitCount = chip.choices.limit;
  return code;
}

}  // namespace pyxis::job
