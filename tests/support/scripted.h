// Bodies of platform/ for tests: an operator that answers by a script and remembers what he was told, and a clock that
// moves only when it is looked at.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/language.h"
#include "platform/main_view.h"
#include "platform/operator.h"
#include "platform/profile.h"

namespace pyxis::test {

struct Told {
  std::string text, caption;
  MessageIcon icon;
  bool operator==(const Told&) const = default;
};

class ScriptedOperator : public Operator {
 public:
  std::vector<Told> told;                        // message boxes and questions in order
  std::deque<bool> answers;                      // to questions; No when empty
  std::deque<std::optional<std::string>> files;  // of the file dialog; Cancel when empty
  std::vector<std::string> filters;              // what the file dialog was asked with
  std::vector<std::string> folders;              // and in which folder it was to open first
  int alarms = 0;
  std::vector<std::string> cursors;              // files that were loaded as a cursor
  bool cursorsLoad = false;
  CursorHandle cursor = 1;
  std::function<DialogEnd(CIcSelectDlg&)> icSelect;
  std::function<DialogEnd(COptionSelectDlg&)> optionSelect;
  std::function<DialogEnd(CSnSetDlg&)> snSet;
  std::function<DialogEnd(CSnProgramDlg&)> snProgram;
  std::function<DialogEnd(CReadChipInfoDlg&)> chipInfo;
  std::function<DialogEnd(CDownloadInfoDlg&)> downloadInfo;
  std::function<DialogEnd(CSmartOptionDlg&)> smartOption;
  std::function<DialogEnd(CGotoAddressDlg&)> gotoAddress;
  int aboutRuns = 0;
  std::function<void(const std::string&)> heard = [](const std::string&) {};  // each event as a line of text

  // What was told since the last call of one of them: the texts, or all of it.
  std::vector<std::string> Heard();
  std::vector<Told> Boxes() { return std::exchange(told, {}); }

  void Tell(const std::string& text, const std::string& caption, MessageIcon icon) override;
  bool Ask(const std::string& text, const std::string& caption, MessageIcon icon) override;
  std::optional<std::string> ChooseFile(const FileQuestion& question) override;
  DialogEnd RunDialog(CIcSelectDlg& d) override { return Run("IC Type Select", icSelect, d); }
  DialogEnd RunDialog(COptionSelectDlg& d) override { return Run("Option Select 1", optionSelect, d); }
  DialogEnd RunDialog(CSnSetDlg& d) override { return Run("Serial Number Set", snSet, d); }
  DialogEnd RunDialog(CSnProgramDlg& d) override { return Run("Serial Number Program", snProgram, d); }
  DialogEnd RunDialog(CReadChipInfoDlg& d) override { return Run("Read CHIP Information", chipInfo, d); }
  DialogEnd RunDialog(CDownloadInfoDlg& d) override { return Run("Download File Information", downloadInfo, d); }
  DialogEnd RunDialog(CSmartOptionDlg& d) override { return Run("Smart Option", smartOption, d); }
  DialogEnd RunDialog(CGotoAddressDlg& d) override { return Run("Goto Address", gotoAddress, d); }
  void Alarm() override { ++alarms; }
  void RunAbout() override { ++aboutRuns, heard("dialog About"); }
  CursorHandle LoadCursorFromFile(const std::string& path) override;
  CursorHandle SetCursor(CursorHandle handle) override;

 private:
  template <typename Dialog>
  DialogEnd Run(const char* title, const std::function<DialogEnd(Dialog&)>& script, Dialog& dialog) {
    heard(std::string("dialog ") + title);
    const DialogEnd end = script ? script(dialog) : DialogEnd::Cancel;
    heard(end == DialogEnd::Ok ? "OK" : "Cancel");
    return end;
  }
};

class FakeClock : public Clock {
 public:
  std::uint32_t tick = 0;
  LocalTime now{2015, 3, 4, 5, 9, 7, 3, 250};
  std::uint32_t step = 1;  // milliseconds that each look takes
  std::uint32_t TickCount() override {
    tick += step;
    if (!looked_) first_ = tick;
    looked_ = true;
    return tick;
  }
  // Milliseconds between the first and the last of the looks since the last call.
  std::uint32_t Waited() { return std::exchange(looked_, false) ? tick - first_ : 0; }
  LocalTime Now() override { return now; }

 private:
  bool looked_ = false;
  std::uint32_t first_ = 0;
};

class MapProfile : public Profile {
 public:
  std::map<std::string, int> values;
  int GetProfileInt(const std::string& section, const std::string& name, int defaultValue) override {
    const auto found = values.find(section + "/" + name);
    return found == values.end() ? defaultValue : found->second;
  }
  void WriteProfileInt(const std::string& section, const std::string& name, int value) override {
    values[section + "/" + name] = value;
  }
};

class FixedLanguage : public Language {
 public:
  std::uint16_t id = 0x0409;
  std::uint16_t GetSystemDefaultLangID() override { return id; }
};

}  // namespace pyxis::test
