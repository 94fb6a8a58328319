#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "catalogue/chip_catalogue.h"
#include "intake/convert.h"
#include "intake/load_file.h"
#include "intake/package_files.h"
#include "job.h"
#include "link/identification.h"
#include "option_words.h"
#include "options/option_select.h"
#include "platform/files.h"
#include "platform/hex_digits.h"
#include "platform/text.h"
#include "serial/big_number.h"
#include "serial/sn_record.h"
#include "serial/sn_run.h"
#include "serial/sn_set.h"
#include "shell/ground/app_state.h"
#include "shell/ground/messages.h"
#include "shell/menu_rules.h"
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
  OptionWords options;
  bool resume = false;
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
  if (WithoutHexPrefix(text).empty()) return false;
  CNumericEdit edit;
  edit.maxLength = field.limit;
  for (const char c : text) {
    edit.start = edit.end = edit.text.size();
    const auto typed = edit.Typed(static_cast<unsigned char>(c));
    if (!typed) return false;
    edit.text += *typed;
  }
  return true;
}

// A file as it lay there.
class KeptFile {
 public:
  explicit KeptFile(std::string path) : path_(std::move(path)), before_(ReadWholeFile(path_)) {}
  void Restore() const {
    if (before_) {
      WriteWholeFile(path_, *before_);
    } else {
      RemoveFile(path_);
    }
  }

 private:
  std::string path_;
  std::optional<std::vector<std::uint8_t>> before_;
};

// Fills the fields as an operator would and presses Load. Whatever the dialog has to say counts as a refusal here, also
// where it would go on: nobody is there to weigh it.
DialogEnd AnswerSet(Job& job, const SerialArguments& given, CSnSetDlg& dialog) {
  const KeptFile kept(SerialFilePath());  // a refused series must not be the one that the next Load File takes
  const bool lengthFits = dialog.OnLengthChange(given.length);
  dialog.OnAddressChange(given.address);
  const bool startFits = dialog.OnStartChange(given.start);
  if (!startFits) Refuse(job, Printf("Start serial %s is longer than the length", given.start.c_str()));
  dialog.OnAmountChange(given.amount);
  dialog.OnDirection(given.direction == "low" ? 0 : 1);
  if (!lengthFits || !startFits) return DialogEnd::Cancel;
  const Outcome outcome = dialog.OnLoad();
  if (outcome == kGood) return DialogEnd::Ok;
  if (outcome.end == End::Failed) Refuse(job, "The template or serial.txt can't be opened");
  if (dialog.written) kept.Restore();
  return DialogEnd::Cancel;
}

// Each set-up that opens from here on; `set`: the last one was taken. All three outlive the dialogs.
void AnswerSets(Job& job, const SerialArguments& given, bool& set) {
  job.op.snSet = [&](CSnSetDlg& dialog) {
    const DialogEnd end = AnswerSet(job, given, dialog);
    set = end == DialogEnd::Ok;
    return end;
  };
}

// A chip whose result isn't in the record is no good one: its serial will be given once more.
void PrintChip(const Job& job, std::uint32_t chip, const std::string& serial, const Outcome& outcome, bool recorded) {
  const bool good = outcome.Good() && recorded;
  if (job.options.json) {
    nlohmann::json line{{"command", "serial"}, {"chip", chip}, {"serial", serial}, {"result", good ? 0 : 1}};
    if (!recorded) line["recorded"] = false;
    Print(line);
  } else {
    std::printf("%s %s\n", serial.c_str(), good ? "OK" : recorded ? "NG" : "not recorded: put the chip aside");
    std::fflush(stdout);
  }
}

// How many chips to put through, unless told otherwise: as many as there are serials when each chip is waited for, else
// the one in the socket.
std::uint32_t ChipsOf(const SerialArguments& given) {
  if (given.chips != 0) return given.chips;
  if (!given.wait) return 1;
  const std::string& amount = TheSnRecord().SnAmountText;
  return amount.size() > 8 ? kMostChips : static_cast<std::uint32_t>(ParseHexDigits(amount));
}

// What of a series is to be put through.
enum class Plan { Run, Complete, Refused };

LineSeries SeriesOf(const SerialArguments& given) {
  return MakeLineSeries(given.length, given.address, given.start, given.amount, given.direction);
}

// Looks the series up in the record. `rest`: as given, or what is left of it; the chips still carry the whole series'
// values in their lines. Without a checksum the job isn't known yet, and has to be looked at again.
Plan PlanSeries(Job& job, const SerialArguments& given, const std::string& ic,
                const std::optional<std::string>& checksum, SerialArguments& rest) {
  rest = given;
  if (!job.record.IsOpen()) return Plan::Run;
  const LineSeries series = SeriesOf(given);
  Resumption resumption;
  if (given.resume) {
    resumption = ResumeSeries(job.record.Serials(), series, ic, checksum);
  } else {
    resumption.error = SerialsGoneOut(job.record.Serials(), series, ic);
  }
  if (!resumption.error.empty()) {
    Refuse(job, resumption.error);
    return Plan::Refused;
  }
  if (!given.resume) return Plan::Run;
  rest.start = resumption.start;
  rest.amount = resumption.amount;
  return resumption.complete ? Plan::Complete : Plan::Run;
}

void ReportComplete(Job& job) {
  job.op.Tell("The record shows every serial of the series as OK: nothing is left", kMessageCaption, MessageIcon::None);
  Report(job, "serial", kGood);
}

struct Pressed {
  std::uint32_t ok = 0, ng = 0;  // chips, kMostChips together at most
  bool enough = false;           // there were as many as asked for or as there are serials
  std::string unkept;            // the serial of a good chip that didn't get into the record, which makes it none
  bool Good() const { return ok != 0 && ng == 0 && enough; }
};

// One press a chip, to the end of the series or of the chips.
Pressed PressThrough(Job& job, const SerialArguments& given, LineEntry entry, CSnProgramDlg& dialog) {
  const std::uint32_t chips = ChipsOf(given);
  Pressed pressed;
  std::string line;
  std::uint32_t chip = 1;
  for (; chip <= chips && dialog.snProgramEnabled; ++chip) {
    if (given.wait && !std::getline(std::cin, line)) break;
    entry.serial = ToUpper(dialog.startText);
    if (!BeginLine(job, entry)) return pressed;
    const Outcome outcome = dialog.OnSnProgram();
    const bool recorded = EndLine(job, outcome);
    ++(outcome.Good() && recorded ? pressed.ok : pressed.ng);
    PrintChip(job, chip, entry.serial, outcome, recorded);
    if (!recorded) {
      if (outcome.Good()) pressed.unkept = entry.serial;
      return pressed;
    }
    if (chip == kMostChips) break;
  }
  pressed.enough = given.chips == 0 || !dialog.snProgramEnabled || chip > chips || chip == kMostChips;
  return pressed;
}

// Before the dialog's end clears the series.
void ReportRun(Job& job, const CSnProgramDlg& dialog, const Pressed& run) {
  if (!run.Good()) job.exitCode = kExitFailed;
  const bool kept = run.unkept.empty();
  if (job.options.json) {
    Print({{"command", "serial"},
           {"result", run.Good() ? 0 : 1},
           {"messages", job.op.messages},
           {"ok", run.ok},
           {"ng", run.ng},
           {"total", run.ok + run.ng},
           {"next", kept ? TheSnRecord().SnStartText : run.unkept}});
  } else {
    std::printf("OK %u, NG %u, Total %u, next %s\n", run.ok, run.ng, run.ok + run.ng,
                kept ? dialog.startText.c_str() : run.unkept.c_str());
  }
}

LineEntry EntryOf(const SerialArguments& given) {
  LineEntry entry;
  entry.command = "serial";
  entry.series = SeriesOf(given);
  entry.job = JobOfBlock();
  return entry;
}

// Serial Number Program: the series goes to a writer that holds its job already.
bool MenuRoad(Job& job, const SerialArguments& given) {
  if (!MenuEnabled(MenuEntry::SerialNumberProgram)) {
    const std::string& chip = TheAppState().selection.ChipNameText;
    Refuse(job, chip.empty() ? "The writer holds no job"
                             : Printf("%s takes serial numbers through --ic only", chip.c_str()));
    return false;
  }
  LineEntry entry;
  SerialArguments rest = given;
  if (job.record.IsOpen()) {
    entry = EntryOf(given);  // now: the series takes the job's place in the block
    if (entry.job.checksum.empty()) {
      Refuse(job,
             "The writer holds a series in the place of its job's description, so the job can't be recorded: load "
             "it again, or use --ic");
      return false;
    }
    const Plan plan = PlanSeries(job, given, entry.job.ic, entry.job.checksum, rest);
    if (plan == Plan::Complete) ReportComplete(job);
    if (plan != Plan::Run) return plan == Plan::Complete;
  }
  bool ran = false, set = false;
  AnswerSets(job, rest, set);
  job.op.snProgram = [&](CSnProgramDlg& dialog) {
    dialog.OnSnSet();
    ran = dialog.snProgramEnabled;
    if (ran) ReportRun(job, dialog, PressThrough(job, rest, entry, dialog));
    if (!ran && set) Refuse(job, "The writer doesn't hold serial.txt");
    dialog.OnClose();
    return DialogEnd::Cancel;
  };
  OnSerialNumberProgram();
  return ran;
}

// The checksum that the job of this IC and file has, from a conversion that leaves the writer's packages as they are;
// nothing, with the operator told, when the file can't be converted.
std::optional<std::string> ChecksumOfFile(Job& job, const SerialArguments& given) {
  const KeptFile option(OptionPackagePath()), data(DataPackagePath());
  const ChipEntry& row = *KnownIc(given.ic);
  AnswerOptionsBy(job, given.options);
  ChooseOptions(row);
  const ConversionResults results = ConvertFile({.ChipCode = row.ChipCode,
                                                 .SelectedChip = row.ChipName,
                                                 .OptionValue = &TheAppState().selection.OptionValue,
                                                 .Path = given.file,
                                                 .Tell = TellText});
  const std::string checksum = JobOfPackage().checksum;
  option.Restore();
  data.Restore();
  return results.Good() ? std::optional(checksum) : std::nullopt;
}

// Nothing is left of the series; but FILE, which isn't loaded any more, has to be its job.
bool CompleteWith(Job& job, const SerialArguments& given) {
  const auto checksum = ChecksumOfFile(job, given);
  SerialArguments rest;
  if (!checksum || PlanSeries(job, given, KnownIc(given.ic)->ChipName, *checksum, rest) != Plan::Complete) return false;
  ReportComplete(job);
  return true;
}

// IC selection with Display Serial Number, then Load File, whose package takes the series to the writer.
bool SelectionRoad(Job& job, const SerialArguments& given) {
  SerialArguments rest;
  const Plan plan = PlanSeries(job, given, KnownIc(given.ic)->ChipName, std::nullopt, rest);
  if (plan != Plan::Run) return plan == Plan::Complete && CompleteWith(job, given);
  bool set = false;
  AnswerSets(job, rest, set);
  const Choices choices{.serial = true, .exhvIsp = given.exhvIsp, .isp = given.isp};
  if (!SelectOnDevice(job, given.ic, choices) || !set) return false;
  AnswerOptionsBy(job, given.options);
  job.op.file = given.file;
  if (!OnLoadFile().Good() || !SnProgressDlg()) return false;
  CSnProgramDlg& dialog = *SnProgressDlg();
  const LineEntry entry = EntryOf(given);
  SerialArguments known;
  const bool fits = PlanSeries(job, given, entry.job.ic, entry.job.checksum, known) == Plan::Run;
  if (fits) ReportRun(job, dialog, PressThrough(job, rest, entry, dialog));
  dialog.OnClose();
  return fits;
}

void RunSerial(Job& job, const SerialArguments& given) {
  if (!OpenRecord(job, "serial", Wanted::Serials, !given.resume)) return;
  if (!Connect(job)) return Report(job, "serial", Failed(Reason::NotReadable));
  if (given.ic.empty()) SettleModelAtSelection();
  if (!(given.ic.empty() ? MenuRoad(job, given) : SelectionRoad(job, given)))
    Report(job, "serial", Refused(Reason::NotSupported));
  CloseTransport();
}

bool Usable(const SerialArguments& given) {
  for (const FieldRow& field : kFields) {
    if (FieldTakes(field, given.*field.text)) continue;
    std::fprintf(stderr, "%s takes a hexadecimal number of at most %zu characters\n", field.option, field.limit);
    return false;
  }
  if (given.ic.empty() != given.file.empty()) {
    std::fprintf(stderr, "--ic and FILE go together: the road through IC selection\n");
    return false;
  }
  if (given.ic.empty()) {
    if (!AnyWord(given.options)) return true;
    std::fprintf(stderr, "--protect and the other options go with --ic: without it the writer's job has them\n");
    return false;
  }
  const ChipEntry* row = KnownIc(given.ic);
  const auto wrong = row != nullptr ? WrongOptions(*row, given.options) : std::nullopt;
  if (wrong) std::fprintf(stderr, "%s\n", wrong->c_str());
  return row != nullptr && !wrong;
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
  CLI::Option* record = AddRecord(*command, job);
  command->add_flag("--resume", given->resume, "go on behind the last serial that the record shows as OK")
      ->needs(record);
  command->add_option("--ic", given->ic, "take the road through IC selection, with this IC and FILE");
  command->add_flag("--exhv-isp", given->exhvIsp, "EXHV ISP program, with --ic");
  command->add_flag("--isp", given->isp, "ISP program, with --ic")->excludes("--exhv-isp");
  AddOptionWords(*command, given->options);
  command->add_option("FILE", given->file, "program file, with --ic");
  command->callback([&job, given] {
    if (Usable(*given)) {
      RunSerial(job, *given);
    } else {
      job.exitCode = kExitUsage;
    }
  });
}

}  // namespace pyxis::job
