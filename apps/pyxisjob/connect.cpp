#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "catalogue/chip_catalogue.h"
#include "intake/package_files.h"
#include "job.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "platform/machine.h"
#include "platform/text.h"
#include "platform/usb_host.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"
#include "shell/refresh_from_writer.h"
#include "shell/start_up.h"

namespace pyxis::job {

namespace {

void Open(const std::string& link) {
  if (link == "vendor") {
    OpenVendorTransport();
  } else if (link == "usb") {
    OpenFrameTransport();
  } else {
    OpenTransport();
  }
}

// By the label, or, since the KM49 labels carry pin counts, by any row of the IC.
bool TakeIcByName(const std::string& chipName) {
  AppState& app = TheAppState();
  if (FindChip(chipName, app.selection.SeriesIndex, app.selection.TypeIndex) != 0) return true;
  const ChipEntry* row = RowOfChip(chipName);
  return row != nullptr && FindChip(row->TypeLabel, app.selection.SeriesIndex, app.selection.TypeIndex) != 0;
}

// The writer's job becomes the selection, as at the start of the window program.
void TakeOverJob(Job& job) {
  AppState& app = TheAppState();
  RefreshFromWriter();
  job.icKnown = TakeIcByName(app.selection.SelectedChip);
  if (job.icKnown)
    app.selection.HasSmartOption = Row(app.selection.SeriesIndex, app.selection.TypeIndex).HasSmartOption;
}

}  // namespace

bool StillAnswers(Job& job) {
  std::array<char, kIdentitySize + 1> identity;
  ReadIdentityText(identity);
  if (identity[0] != '\0') return true;
  job.op.Tell("The writer doesn't answer", kMessageCaption, MessageIcon::Stop);
  return false;
}

bool Connect(Job& job) {
  Open(job.options.link);
  if (!TheAppState().writer.WriterConnected) {
    job.op.Tell(kUsbNotConnected, kMessageCaption, MessageIcon::Stop);
    if (const std::string words = TheMachine().usb->MissingRight(); !words.empty())
      job.op.Tell(words, kMessageCaption, MessageIcon::Stop);
    return false;
  }
  IdentifyAtStart();
  if (!StillAnswers(job)) {
    CloseTransport();
    return false;
  }
  TakeOverJob(job);
  return true;
}

void RunOnWriter(Job& job, const char* command, const std::function<Outcome()>& run) {
  if (!Connect(job)) return Report(job, command, Failed(Reason::NotReadable));
  Report(job, command, run());
  CloseTransport();
}

void Report(Job& job, const char* command, const Outcome& outcome) {
  Report(job, command, outcome, nlohmann::json::object());
}

void Report(Job& job, const char* command, const Outcome& outcome, const nlohmann::json& members) {
  if (!outcome.Good()) job.exitCode = kExitFailed;
  if (!job.options.json) return;
  nlohmann::json object{{"command", command}, {"result", outcome.Good() ? 0 : 1}, {"messages", job.op.messages}};
  object.update(members);
  Print(object);
}

bool Allowed(Job& job, MenuEntry entry) {
  if (MenuEnabled(entry)) return true;
  const std::string name = WithoutMnemonic(CaptionOf(entry));
  const std::string& chip = TheAppState().selection.ChipNameText;
  job.op.Tell(chip.empty() ? Printf("%s: the writer holds no job", name.c_str())
                           : Printf("%s is not available for the job in the writer (%s)", name.c_str(), chip.c_str()),
              kMessageCaption, MessageIcon::Warning);
  return false;
}

}  // namespace pyxis::job
