#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "catalogue/ic_select.h"
#include "intake/load_file.h"
#include "job.h"
#include "link/identification.h"
#include "platform/text.h"
#include "serial/big_number.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "shell/ground/app_state.h"
#include "shell/menu_rules.h"
#include "shell/on_device.h"
#include "shell/start_up.h"
#include "view/numeric_edit.h"

namespace pyxis::job {

namespace {

struct SerialArguments {
  std::string length, address, start, amount, direction = "low";
  std::uint32_t chips = 0;
  bool wait = false;
  // The road through IC selection.
  std::string ic, file;
  bool exhvIsp = false, isp = false;
};

constexpr std::uint32_t kMostChips = 0xFFFFFFFF;

struct FieldRow {
  const char* option;
  std::string SerialArguments::*text;
  std::size_t limit;
};
constexpr FieldRow kFields[] = {{"--length", &SerialArguments::length, CSnSetDlg::kLengthLimit},
                                {"--address", &SerialArguments::address, CSnSetDlg::kAddressLimit},
                                {"--start", &SerialArguments::start, CSnSetDlg::kNumberLimit},
                                {"--amount", &SerialArguments::amount, CSnSetDlg::kNumberLimit}};

void Refuse(Job& job, const std::string& text) { job.op.Tell(text, kMessageCaption, MessageIcon::Warning); }

// Whether the dialog's field lets the text in as it stands. An empty one is no number: a script's unset variable must
// not begin a series at 0.
bool FieldTakes(const FieldRow& field, const std::string& text) {
  if (WithoutPrefix(text).empty()) return false;
  CNumericEdit edit;
  edit.maxLength = field.limit;
  for (const char c : text) edit.TypeCharacter(static_cast<unsigned char>(c));
  return EqualsNoCase(edit.Text(), text);
}

// Fills the fields as an operator would and presses Load. Whatever the dialog has to say counts as a refusal here, also
// where it would go on: nobody is there to weigh it.
DialogEnd AnswerSet(Job& job, const SerialArguments& given, CSnSetDlg& dialog) {
  const std::size_t told = job.op.messages.size();
  dialog.OnLengthChange(given.length);
  dialog.OnAddressChange(given.address);
  dialog.OnStartChange(given.start);
  if (dialog.startText != given.start)
    Refuse(job, Printf("Start serial %s is longer than the length", given.start.c_str()));
  dialog.OnAmountChange(given.amount);
  dialog.OnDirection(given.direction == "low" ? 0 : 1);
  if (job.op.messages.size() == told) dialog.OnLoad();
  if (dialog.ended && !dialog.written) Refuse(job, "The template or serial.txt can't be opened");
  return dialog.ended && job.op.messages.size() == told ? DialogEnd::Ok : DialogEnd::Cancel;
}

void PrintChip(const Job& job, std::uint32_t chip, const std::string& serial, bool good) {
  if (job.options.json) {
    Print({{"command", "serial"}, {"chip", chip}, {"serial", serial}, {"result", good ? 0 : 1}});
  } else {
    std::printf("%s %s\n", serial.c_str(), good ? "OK" : "NG");
    std::fflush(stdout);
  }
}

// How many chips to put through, unless told otherwise: as many as there are serials when each chip is waited for, else
// the one in the socket.
std::uint32_t ChipsOf(const SerialArguments& given) {
  if (given.chips != 0) return given.chips;
  if (!given.wait) return 1;
  const std::string& amount = TheSnRecord().SnAmountText;
  return amount.size() > 8 ? kMostChips : static_cast<std::uint32_t>(std::strtoul(amount.c_str(), nullptr, 16));
}

unsigned long Count(const std::string& hex) { return std::strtoul(hex.c_str(), nullptr, 16); }

// One press a chip, to the end of the run or of the chips. True when every chip is good, and there were as many as
// asked for or as there are serials.
bool PressThrough(const Job& job, const SerialArguments& given, CSnProgramDlg& dialog) {
  const std::uint32_t chips = ChipsOf(given);
  std::string line;
  std::uint32_t chip = 1;
  for (; chip <= chips && dialog.snProgramEnabled; ++chip) {
    if (given.wait && !std::getline(std::cin, line)) break;
    const std::string serial = ToUpper(dialog.startText);
    const std::string okBefore = dialog.okText;
    dialog.OnSnProgram();
    PrintChip(job, chip, serial, dialog.okText != okBefore);
    if (chip == kMostChips) break;
  }
  const bool enough = given.chips == 0 || !dialog.snProgramEnabled || chip > chips || chip == kMostChips;
  return dialog.ngText == "0" && dialog.okText != "0" && enough;
}

// The counters, before the dialog's end clears them.
void ReportRun(Job& job, const CSnProgramDlg& dialog, bool good) {
  if (!good) job.exitCode = kExitFailed;
  const unsigned long ok = Count(dialog.okText), ng = Count(dialog.ngText), total = Count(dialog.totalText);
  if (job.options.json) {
    Print({{"command", "serial"},
           {"result", good ? 0 : 1},
           {"messages", job.op.messages},
           {"ok", ok},
           {"ng", ng},
           {"total", total},
           {"next", TheSnRecord().SnStartText}});
  } else {
    std::printf("OK %lu, NG %lu, Total %lu, next %s\n", ok, ng, total, dialog.startText.c_str());
  }
}

// Serial Number Program: the series goes to a writer that holds its job already.
bool MenuRoad(Job& job, const SerialArguments& given) {
  if (!MenuEnabled(MenuEntry::SerialNumberProgram)) {
    const std::string& chip = TheAppState().selection.ChipNameText;
    Refuse(job, chip.empty() ? "The writer holds no job"
                             : Printf("%s takes serial numbers through --ic only", chip.c_str()));
    return false;
  }
  bool ran = false;
  job.op.snSet = [&](CSnSetDlg& dialog) { return AnswerSet(job, given, dialog); };
  job.op.snProgram = [&](CSnProgramDlg& dialog) {
    const std::size_t told = job.op.messages.size();
    dialog.OnSnSet();
    ran = dialog.snProgramEnabled;
    if (ran) ReportRun(job, dialog, PressThrough(job, given, dialog));
    if (!ran && job.op.messages.size() == told) Refuse(job, "The writer doesn't hold serial.txt");
    dialog.OnClose();
    return DialogEnd::Cancel;
  };
  OnSerialNumberProgram();
  return ran;
}

// Selects the row of that label with Display Serial Number; false, with the operator told, where it isn't offered.
DialogEnd AnswerSelection(Job& job, const SerialArguments& given, CIcSelectDlg& dialog) {
  for (int series = 0; series < static_cast<int>(dialog.seriesList.size()); ++series) {
    dialog.OnSeriesChange(series);
    for (int type = 0; type < static_cast<int>(dialog.typeList.size()); ++type) {
      if (!EqualsNoCase(dialog.typeList[static_cast<std::size_t>(type)], given.ic)) continue;
      dialog.OnTypeChange(type);
      const bool offered = dialog.displaySerial.enabled && (!given.exhvIsp || dialog.exhvIsp.enabled) &&
                           (!given.isp || dialog.isp.enabled);
      if (!offered) {
        Refuse(job, given.ic + " doesn't offer these choices");
        return DialogEnd::Cancel;
      }
      dialog.OnDisplaySerial(true);
      if (given.exhvIsp) dialog.OnExhvIsp(true);
      if (given.isp) dialog.OnIsp(true);
      return dialog.OnOk() ? DialogEnd::Ok : DialogEnd::Cancel;
    }
  }
  Refuse(job, given.ic + " is no IC of this writer; pyxisjob ics lists them");
  job.exitCode = kExitUsage;
  return DialogEnd::Cancel;
}

// IC selection with Display Serial Number, then Load File, whose package takes the series to the writer.
bool SelectionRoad(Job& job, const SerialArguments& given) {
  bool set = false;
  job.op.icSelect = [&](CIcSelectDlg& dialog) { return AnswerSelection(job, given, dialog); };
  job.op.snSet = [&](CSnSetDlg& dialog) {
    const DialogEnd end = AnswerSet(job, given, dialog);
    set = end == DialogEnd::Ok;
    return end;
  };
  OnDevice();
  if (!set) return false;
  job.op.file = given.file;
  OnLoadFile();
  if (job.op.messages.empty() || job.op.messages.back() != "Loading Data Ok" || !SnProgressDlg()) return false;
  CSnProgramDlg& dialog = *SnProgressDlg();
  ReportRun(job, dialog, PressThrough(job, given, dialog));
  dialog.OnClose();
  return true;
}

void Run(Job& job, const SerialArguments& given) {
  if (!Connect(job)) return Report(job, "serial", false);
  SettleModelAtSelection();
  const bool ran = given.ic.empty() ? MenuRoad(job, given) : SelectionRoad(job, given);
  if (const int code = job.exitCode; !ran) {
    Report(job, "serial", false);
    if (code == kExitUsage) job.exitCode = code;
  }
  CloseTransport();
}

bool Usable(const SerialArguments& given) {
  for (const FieldRow& field : kFields) {
    if (FieldTakes(field, given.*field.text)) continue;
    std::fprintf(stderr, "%s takes a hexadecimal number of at most %zu characters\n", field.option, field.limit);
    return false;
  }
  if (given.ic.empty() == given.file.empty()) return true;
  std::fprintf(stderr, "--ic and FILE go together: the road through IC selection\n");
  return false;
}

}  // namespace

void AddSerial(CLI::App& app, Job& job) {
  CLI::App* command = app.add_subcommand("serial", "program a series of serial numbers, chip by chip");
  auto given = std::make_shared<SerialArguments>();
  command->add_option("--length", given->length, "S/N length in bytes, hexadecimal, 1 to 10")->required();
  command->add_option("--address", given->address, "S/N start address, hexadecimal")->required();
  command->add_option("--start", given->start, "first serial, hexadecimal")->required();
  command->add_option("--amount", given->amount, "how many serials, hexadecimal")->required();
  command->add_option("--direction", given->direction, "where the most significant byte goes in: low or high")
      ->check(CLI::IsMember({"low", "high"}));
  command
      ->add_option("--chips", given->chips, "chips to put through, decimal; default: 1, with --wait as many as serials")
      ->check(CLI::Range(1U, kMostChips));
  command->add_flag("--wait", given->wait, "each chip waits for a line on standard input");
  command->add_option("--ic", given->ic, "take the road through IC selection, with this IC and FILE");
  command->add_flag("--exhv-isp", given->exhvIsp, "EXHV ISP program, with --ic");
  command->add_flag("--isp", given->isp, "ISP program, with --ic")->excludes("--exhv-isp");
  command->add_option("FILE", given->file, "program file, with --ic");
  command->callback([&job, given] {
    if (Usable(*given)) {
      Run(job, *given);
    } else {
      job.exitCode = kExitUsage;
    }
  });
}

}  // namespace pyxis::job
