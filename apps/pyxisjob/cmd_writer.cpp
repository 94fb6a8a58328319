#include <CLI/CLI.hpp>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "intake/package_files.h"
#include "job.h"
#include "link/identification.h"
#include "link/transport.h"
#include "link/writer_commands.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"

namespace pyxis::job {

namespace {

void PrintWriter(const Job& job) {
  const AppState& app = TheAppState();
  const auto& block = app.writer.WriterInfoBlock;
  const std::string chip = ChipNameOf(block);
  const std::string checksum = Printf("%04X", FieldWord(block, Field::ImageChecksum));
  const char* transport = ActiveTransport().Name();
  if (job.options.json) {
    Print({{"command", "writer"},
           {"result", 0},
           {"messages", job.op.messages},
           {"transport", transport},
           {"identity", app.writer.WriterIdentityText.data()},
           {"hw_folder", app.writer.HwFolder},
           {"model", NameOf(app.writer.WriterModel)},
           {"model_register", app.writer.ModelRegister},
           {"firmware_code", app.writer.FirmwareCode},
           {"firmware_version", app.writer.FirmwareVersion},
           {"firmware_level", app.writer.FirmwareLevel},
           {"chip", chip},
           {"checksum", checksum},
           {"image_length", FieldWord(block, Field::ImageLength)},
           {"production_flags", FieldByte(block, Field::ProductionFlags)}});
    return;
  }
  const LineWriter writer = WriterIdentity();
  std::printf("identity   %s (%s, over %s)\n", writer.identity.c_str(), writer.hardware.c_str(), transport);
  std::printf("model      %s\n", writer.model.c_str());
  std::printf("firmware   %s\n", writer.firmware.c_str());
  if (FieldWord(block, Field::ImageChecksum) == 0) {
    std::printf("job        none\n");
  } else {
    std::printf("job        %s, checksum %s, length %d\n", chip.c_str(), checksum.c_str(),
                FieldWord(block, Field::ImageLength));
  }
}

}  // namespace

LineWriter WriterIdentity() {
  const WriterState& writer = TheAppState().writer;
  return {.identity = writer.WriterIdentityText.data(),
          .hardware = writer.HwFolder,
          .model = NameOf(ModelOf(writer.ModelRegister)),
          .firmware = Printf("code 0x%04X, version %d, level %u", writer.FirmwareCode, writer.FirmwareVersion,
                             writer.FirmwareLevel)};
}

void AddWriter(CLI::App& app, Job& job) {
  app.add_subcommand("writer", "identity, model, firmware, and the job that the writer holds")->callback([&job] {
    if (!Connect(job)) return Report(job, "writer", Failed(Reason::NotReadable));
    PrintWriter(job);
    CloseTransport();
  });
}

}  // namespace pyxis::job
