#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "catalogue/chip_catalogue.h"
#include "job.h"

namespace pyxis::job {

namespace {

void PrintRow(const Job& job, Model model, int list, const ChipEntry& row) {
  const char* modelName = NameOf(model);
  if (!job.options.json) {
    std::printf("%s %2d %-18s %-8s 0x%-6X %s\n", modelName, list, row.TypeLabel, row.ChipName, row.ChipCode,
                row.FileExtension);
    return;
  }
  Print({{"model", modelName},
         {"list", list},
         {"label", row.TypeLabel},
         {"chip", row.ChipName},
         {"code", row.ChipCode},
         {"file_extension", row.FileExtension},
         {"has_option_dialog", row.HasOptionDialog},
         {"has_smart_option", row.HasSmartOption},
         {"ticks", {row.AutoTicks, row.BlankTicks, row.ProgramTicks, row.VerifyTicks}},
         {"option_masks", row.OptionMasks},
         {"read_size_bytes", row.ReadSizeBytes},
         {"read_swap_bytes", row.ReadSwapBytes},
         {"has_isp_program", row.HasIspProgram},
         {"firmware_file", row.ic->firmware.file},
         {"firmware_code", FirmwareFor(row.ChipCode, model)->FirmwareCode}});
}

}  // namespace

void AddIcs(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("ics", "list the ICs");
  auto model = std::make_shared<std::string>();
  command->add_option("--model", *model, "writer model")->check(CLI::IsMember({kNameKm48, kNameKm49}));
  command->callback([&job, model] {
    for (int list = 0; list < kListCount; ++list) {
      const Model listModel = list < kFirstKm49List ? Model::Km48 : Model::Km49;
      if (!model->empty() && *model != NameOf(listModel)) continue;
      for (const ChipEntry& row : ChipList(list)) PrintRow(job, listModel, list, row);
    }
  });
}

}  // namespace pyxis::job
