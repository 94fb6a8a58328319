// The one road of selection for all commands that work on a writer: IC Type Select, box by box.
#include <cstdio>
#include <optional>

#include "catalogue/chip_catalogue.h"
#include "catalogue/ic_select.h"
#include "job.h"
#include "platform/text.h"
#include "shell/ground/app_state.h"
#include "shell/on_device.h"

namespace pyxis::job {

namespace {

bool Names(const ChipEntry& row, const std::string& name) {
  return EqualsNoCase(row.TypeLabel, name) || EqualsNoCase(row.ChipName, name);
}

// A label stands for itself; an IC's name for its first label in the lists of the attached model.
bool Choose(CIcSelectDlg& dialog, const std::string& name) {
  const int model = static_cast<int>(dialog.seriesList.size());
  for (const bool byLabel : {true, false})
    for (int series = 0; series < model; ++series) {
      const auto rows = ChipList(ListIndex(TheAppState().writer.WriterModel, series));
      for (std::size_t type = 0; type < rows.size(); ++type) {
        if (!EqualsNoCase(byLabel ? rows[type].TypeLabel : rows[type].ChipName, name)) continue;
        dialog.OnSeriesChange(series);
        dialog.OnTypeChange(static_cast<int>(type));
        return true;
      }
    }
  return false;
}

struct Box {
  const char* caption;
  bool wanted;
  CIcSelectDlg::CheckBox CIcSelectDlg::*box;
  void (CIcSelectDlg::*click)(bool);
};

// The caption of the first wanted box that the dialog doesn't offer; each is ticked by a click, which may grey another.
std::optional<std::string> Tick(CIcSelectDlg& dialog, const Choices& choices) {
  const Box boxes[] = {
      {CIcSelectDlg::kDisplaySerialCaption, choices.serial, &CIcSelectDlg::displaySerial,
       &CIcSelectDlg::OnDisplaySerial},
      {CIcSelectDlg::kMassProductionCaption, choices.mass, &CIcSelectDlg::massProduction,
       &CIcSelectDlg::OnMassProduction},
      {CIcSelectDlg::kProductionLimitCaption, choices.limit > 0, &CIcSelectDlg::productionLimit,
       &CIcSelectDlg::OnProductionLimit},
      {CIcSelectDlg::kExhvIspCaption, choices.exhvIsp, &CIcSelectDlg::exhvIsp, &CIcSelectDlg::OnExhvIsp},
      {CIcSelectDlg::kIspCaption, choices.isp, &CIcSelectDlg::isp, &CIcSelectDlg::OnIsp},
  };
  for (const Box& box : boxes) {
    if (!box.wanted) continue;
    if (!(dialog.*box.box).enabled) return WithoutMnemonic(box.caption);
    (dialog.*box.click)(true);
  }
  return std::nullopt;
}

DialogEnd Answer(Job& job, CIcSelectDlg& dialog, const std::string& name, const Choices& choices) {
  const auto refuse = [&job](const std::string& text) {
    job.op.Tell(text, kMessageCaption, MessageIcon::Warning);
    return DialogEnd::Cancel;
  };
  if (!Choose(dialog, name)) return refuse(name + " is no IC of the attached writer; pyxisjob ics lists them");
  if (const auto missing = Tick(dialog, choices)) return refuse(name + " doesn't offer " + *missing);
  if (choices.limit > 0 && !dialog.OnLimitText(Printf("%d", choices.limit))) return DialogEnd::Cancel;
  return dialog.OnOk() ? DialogEnd::Ok : DialogEnd::Cancel;
}

}  // namespace

void TellUnknownIc(const std::string& name) {
  std::fprintf(stderr, "%s is no known IC; pyxisjob ics lists them\n", name.c_str());
}

const ChipEntry* KnownIc(const std::string& name) {
  for (int list = 0; list < kListCount; ++list)
    for (const ChipEntry& row : ChipList(list))
      if (Names(row, name)) return &row;
  TellUnknownIc(name);
  return nullptr;
}

bool SelectOnDevice(Job& job, const std::string& name, const Choices& choices) {
  job.op.icSelect = [&](CIcSelectDlg& dialog) { return Answer(job, dialog, name, choices); };
  const Outcome outcome = OnDevice();
  job.op.icSelect = nullptr;
  return outcome.Good();
}

}  // namespace pyxis::job
