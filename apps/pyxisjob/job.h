// One run of the headless job runner: its options, the operator who answers without a window, and the output.
#pragma once

#include <cstdint>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "options/option_select.h"
#include "platform/operator.h"
#include "record/line_record.h"
#include "shell/ground/outcome.h"
#include "shell/menu_rules.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace pyxis {
struct ChipEntry;
}

namespace pyxis::job {

// Exit codes of the program.
enum Exit : int { kExitGood = 0, kExitFailed = 1, kExitUsage = 2 };

// Answers questions by --yes or --no and keeps every message. Files and dialogs are answered by the command.
class HeadlessOperator : public Operator {
 public:
  bool answer = false;
  bool quiet = false;  // --json: messages stand in the output, not on standard error
  std::vector<std::string> messages;
  std::optional<std::string> file;  // what the file dialog gives
  std::function<DialogEnd(COptionSelectDlg&)> optionSelect;
  std::function<DialogEnd(CDownloadInfoDlg&)> downloadInfo;
  std::function<DialogEnd(CReadChipInfoDlg&)> chipInfo;
  std::function<DialogEnd(CIcSelectDlg&)> icSelect;
  std::function<DialogEnd(CSnSetDlg&)> snSet;
  std::function<DialogEnd(CSnProgramDlg&)> snProgram;

  void Tell(const std::string& text, const std::string& caption, MessageIcon icon) override;
  bool Ask(const std::string& text, const std::string& caption, MessageIcon icon) override;
  std::optional<std::string> ChooseFile(const FileQuestion&) override { return file; }
  using Operator::RunDialog;
  DialogEnd RunDialog(COptionSelectDlg& dialog) override;
  DialogEnd RunDialog(CDownloadInfoDlg& dialog) override;
  DialogEnd RunDialog(CReadChipInfoDlg& dialog) override;
  DialogEnd RunDialog(CIcSelectDlg& dialog) override;
  DialogEnd RunDialog(CSnSetDlg& dialog) override;
  DialogEnd RunDialog(CSnProgramDlg& dialog) override;
};

struct Options {
  std::string folder;  // empty: the one that RunnerFolder gives
  bool json = false;
  bool trace = false;
  std::string link;  // "vendor", "usb" or empty: the usual order
  bool yes = false;
  bool no = false;
};

// The boxes of IC selection.
struct Choices {
  bool serial = false, exhvIsp = false, isp = false, mass = false;
  std::int32_t limit = 0;  // 0: no production limit
};

// What convert takes: an IC by label or number, and what a selection or a writer would have said of it.
struct ChipOptions {
  std::string ic, code, chip, model, hw;
  std::uint32_t optionValue = kDefaultOptionValue;
  Choices choices;
};

struct Job {
  Options options;
  HeadlessOperator op;
  int exitCode = kExitGood;
  bool icKnown = false;    // the writer's job is of an IC of the catalogue
  std::string recordFile;  // of --record; empty: nothing is recorded
  LineRecord record;
};

void AddChoices(CLI::App& command, Choices& choices);
void AddChipOptions(CLI::App& command, ChipOptions& chip);
// For convert: looks --ic or --code up and fills AppState with the choices. Nothing, with a line on standard error,
// when the IC isn't known.
std::optional<std::uint32_t> SelectChip(const ChipOptions& chip);

// The line on standard error about an IC that nobody knows.
void TellUnknownIc(const std::string& name);
// The first row with this label or IC name, of either model; null, with that line, when there is none.
const ChipEntry* KnownIc(const std::string& name);
// IC selection as the operator does it: the menu command Device, the label (or the first label of the IC), the boxes by
// the rules of the dialog. False, with the operator told, when the attached writer or the IC doesn't offer them.
// Serial Number Set, where it opens, is answered by op.snSet.
bool SelectOnDevice(Job& job, const std::string& name, const Choices& choices);

// A JSON object on one line of standard output.
void Print(const nlohmann::json& object);

// Opens the writer on the transports that --link allows, identifies it and takes over the job that it holds. False,
// with the operator told, when there is none, or when it doesn't answer.
bool Connect(Job& job);
// Whether the writer still answers at the end of a command that can't see a lost link by itself; tells the operator
// when it doesn't.
bool StillAnswers(Job& job);
// Connects, runs the command, reports its outcome and closes the transport.
void RunOnWriter(Job& job, const char* command, const std::function<Outcome()>& run);

// The outcome of a command with its messages: one JSON object, or nothing when they have been shown. Members: an
// object.
void Report(Job& job, const char* command, const Outcome& outcome);
void Report(Job& job, const char* command, const Outcome& outcome, const nlohmann::json& members);

// The line's record (record/line_record.h). Where none is wanted, all of these do nothing and are good.
CLI::Option* AddRecord(CLI::App& command, Job& job);
// Before the writer is opened. False, with the failure reported, when the record can't be had.
bool OpenRecord(Job& job, const char* command, Wanted wanted = Wanted::Nothing, bool create = true);
// IC, checksum and conversion time of the writer's job; no checksum where a series from the menu has taken the job's
// place in the block.
LineJob JobOfBlock();
// The same of the option package in the program folder: after a load whose read-back was good it is what the writer
// holds, also when the writer has gone since and the block is still that of the job before.
LineJob JobOfPackage();
// The time, the writer and, unless the entry names its own, the job are filled in. False, with the operator told.
bool BeginLine(Job& job, LineEntry entry);
bool EndLine(Job& job, const Outcome& outcome, const LineJob* brought = nullptr);
// As `writer` tells it.
LineWriter WriterIdentity();

// Whether the menu entry would be enabled; the operator is told when it wouldn't.
bool Allowed(Job& job, MenuEntry entry);

// Takes the options, runs the command, and gives the exit code. The machine's bodies are in place.
int RunCommandLine(Job& job, int argc, char** argv);

// Each adds its command; the callbacks run after the options have been taken over.
void AddConvert(CLI::App& app, Job& job);
void AddIcs(CLI::App& app, Job& job);
void AddWriter(CLI::App& app, Job& job);
void AddLoad(CLI::App& app, Job& job);
void AddTasks(CLI::App& app, Job& job);
void AddInspections(CLI::App& app, Job& job);
void AddProtect(CLI::App& app, Job& job);
void AddSerial(CLI::App& app, Job& job);

}  // namespace pyxis::job
