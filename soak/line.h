// A production line for a day: one program, one writer on one transport, an operator, and the soak's own count beside
// them. What differs between the two throws a Difference.
#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include "serial/sn_run.h"
#include "soak/chance.h"
#include "soak/count.h"
#include "support/standin_bench.h"

namespace pyxis::soak {

class Difference : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What has happened, for the last line.
struct Totals {
  std::uint64_t chips = 0, good = 0, runs = 0, loads = 0;
  std::map<std::string, std::uint64_t> failures;  // by kind
};

struct LineIc {
  const char* label;
  std::size_t limit;  // the highest start address plus length
  Unit unit;
  bool menuRoad, selectionRoad;  // which it has
  bool flash;                    // Auto erases a chip that is burnt already
};

class Line : public test::StandinBench {
 public:
  Line(test::Transport transport, std::uint64_t seed, Totals& totals);
  void TestBody() override {}
  // One job and what is burnt with it: a series on one of the roads, or chips without serials.
  void Run();

  // What the line was at: the job, the series, and what went before in this run.
  std::string Story() const;

 private:
  enum class Task { SerialAuto, SerialProgram, Auto };
  struct Counters {
    std::uint64_t ok = 0, ng = 0, total = 0;
  };

  // line_job.cpp: the job.
  void Select(bool serials);  // Device, until the operator goes through with it
  void CancelDevice();
  void CancelLoad();
  DialogEnd ChooseProtection(COptionSelectDlg& dialog);
  void LoadUntilGood();
  bool LoadOnce();
  void SetProtect();
  // The cable is pulled at one of the next transfers, out of so many.
  void PullWithin(std::uint64_t transfers, const char* kind);
  void Replug();  // it is out now, if it wasn't before, and comes back

  // line_series.cpp: the series.
  Series DrawSeries(Road road);
  DialogEnd FillIn(CSnSetDlg& dialog, Road road);
  void RunSelectionRoad();
  void RunMenuRoad();
  void RunMenuDialog(CSnProgramDlg& dialog);
  bool SetUpInMenu(CSnProgramDlg& dialog);
  void RunWithoutSerials();
  void PressThrough(CSnProgramDlg& dialog, Task task);
  void Interlude(CSnProgramDlg& dialog, Task task);  // between two chips
  void StartSeries(const Series& series);

  // line_chip.cpp: one chip, and what has to agree after it.
  void PutChip();
  void PressSerial(CSnProgramDlg& dialog, Task task);
  void PressAuto();
  bool DrawFault(Task task);  // true when it spoils the chip
  bool ChipTakes(Task task) const;
  void CheckWindow(const CSnProgramDlg& dialog) const;
  void CheckLimit() const;
  void CheckNumbers() const;
  void CheckTaskButtons() const;

  void Expect(bool holds, const std::string& what) const;
  template <typename T>
  void Same(const T& got, const T& expected, const char* what) const {
    if (!(got == expected)) throw Difference(std::string(what) + ": " + Text(got) + ", expected " + Text(expected));
  }
  static std::string Text(const std::string& value) { return '"' + value + '"'; }
  static std::string Text(std::uint64_t value) { return std::to_string(value); }
  static std::string Text(bool value) { return value ? "yes" : "no"; }
  static std::string Text(Number value) { return Hex(value); }
  void Fails(const char* kind) { ++totals_.failures[kind], Note(kind); }
  void Note(const std::string& event) { story_.push_back(event + " at chip " + Text(totals_.chips)); }

  test::Transport transport_;
  Chance chance_;
  Totals& totals_;
  std::map<std::string, std::string> samples_;  // by label
  const LineIc* ic_ = nullptr;
  std::string writersIc_;  // of the last good load
  Bytes data_;             // of the job
  Series series_;
  std::vector<Number> carried_;  // by the good chips of the series, in their order
  std::optional<Series> file_;   // what serial.txt tells
  std::string fileIc_;
  std::uint64_t limit_ = 0;  // 0: none
  std::uint64_t produced_ = 0;
  Counters beside_, inMenu_;  // of the window beside the main window, and of the menu's
  std::vector<std::string> story_;
  bool deviceCancelled_ = false;
  bool pulled_ = false;
  bool deviceAgain_ = false;
};

}  // namespace pyxis::soak
