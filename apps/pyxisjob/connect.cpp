#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "job.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "link/writer_link.h"
#include "shell/app_state.h"
#include "shell/start_up.h"

namespace pyxis::job {

namespace {

void Open(const std::string& link) {
  if (link == "vendor") {
    OpenVendorTransport();
  } else if (link == "usb") {
    TheAppState().WriterConnected = static_cast<std::uint32_t>(OpenWriterLink());
  } else {
    OpenTransport();
  }
}

// The writer's job becomes the selection, as at the start of the window program.
void TakeOverJob() {
  AppState& app = TheAppState();
  app.SelectedChip = ChipNameOf(app.WriterInfoBlock);
  app.ChipNameText = app.SelectedChip;
  if (FindChip(app.SelectedChip, app.SeriesIndex, app.TypeIndex) != 0)
    app.HasSmartOption = Row(app.SeriesIndex, app.TypeIndex).HasSmartOption ? 1 : 0;
}

}  // namespace

bool Connect(Job& job) {
  Open(job.options.link);
  if (TheAppState().WriterConnected == 0) {
    job.op.Tell("USB was not connected", kMessageCaption, MessageIcon::Stop);
    return false;
  }
  IdentifyAtStart();
  TakeOverJob();
  return true;
}

void Report(Job& job, const char* command, bool good) {
  if (!good) job.exitCode = kExitFailed;
  if (job.options.json)
    Print({{"command", command}, {"result", good ? 0 : 1}, {"messages", job.op.messages}});
}

}  // namespace pyxis::job
