// What the orders of a scenario do, and the values that they set and look at.
#pragma once

#include <functional>

#include "serial/sn_set.h"
#include "shell/application.h"
#include "shell/main_dialog.h"
#include "support/recorder.h"
#include "support/scenario_text.h"
#include "support/standin_bench.h"

namespace pyxis {
class CDownloadInfoDlg;
class CSnProgramDlg;
}  // namespace pyxis

namespace pyxis::test {

class ScenarioBench : public StandinBench {
 public:
  ScenarioBench(Transport transport, const ScenarioTexts& texts);
  ~ScenarioBench() override;

  // A line in the first column is an order, the lines under it that begin with two blanks are the events of its run.
  void Run(const Texts& lines);

 private:
  // An order's words, and what stands behind its " = ".
  struct Args {
    Texts words;
    std::string value;
    const std::string& operator[](std::size_t word) const { return words.at(word); }
    template <typename T = int>
    T As(std::size_t word) const {
      return static_cast<T>(Number(words.at(word)));
    }
    Bytes Data() const { return BytesOf(value); }
  };
  // A value of the program as text.
  struct Field {
    std::function<std::string()> get;
    std::function<void(const std::string&)> set;
  };

  void TestBody() override {}
  // What happens from here on, and what is expected to have happened since. A line that begins with "w " is one of the
  // wire, over the bench's transport. The bar starts hidden, on a range that nobody sets.
  void Start();
  void ExpectEvents(const Texts& wanted);
  // Lists that stand in many others: the information block; one package file with its read-back; what a write or a read
  // of so many bytes shows that drives the bar; reads of the task status, each with its step of a bar that stands at
  // `shown`, 0 for a hidden one.
  static Texts InfoBlock();
  Texts PackageFile(const std::string& area, const Bytes& bytes) const;
  Texts BarBehind(std::size_t bytes) const;
  static Texts Poll(int reads, int divisor, int shown = 1);
  bool Usb() const { return transport_ == Transport::Usb; }

  void Do(const std::string& line);
  std::string ForTransport(const std::string& line) const;
  Texts List(const std::string& line) const;
  Texts Events(const Texts& lines) const;
  std::string WorkedOut(std::string line) const;

  Bytes Held(const std::string& name) const;  // the writer's, the program's, or a file's
  void Poke(const std::string& name, std::size_t at, const Bytes& bytes);
  void ExpectBytes(const Args& args) const;
  void ExpectField(const std::string& name, const std::string& wanted) const;
  void ExpectLines(const std::string& part, const std::string& wanted) const;
  static void Controls(const Texts& words, bool expect);
  void Script(const Args& args);
  void CompareIn(CDownloadInfoDlg& dialog);
  void Press(CSnProgramDlg& dialog, const Texts& steps);
  void Convert(const Args& args);
  void Restart(bool buttonsOn);
  void Device(DeviceEvent::Kind kind, const std::string& name);
  void ComeAnotherWriter();
  void DoAt(const std::string& line);
  void OfferedEntries(Texts chips);
  std::map<std::string, Field> Fields();
  std::map<std::string, std::function<void(const Args&)>> Orders();

  Recorder record{usb, vendor, op, clock, folder};
  const Transport transport_;
  const ScenarioTexts& texts_;
  std::vector<std::pair<std::string, std::string>> at_;  // beginnings of lines, and the orders that wait for them
  const std::filesystem::path before_ = std::filesystem::current_path();
  CPyxisLoadApp app_;
  CPyxisLoadDlg dialog_;
  std::uint32_t optionValue_ = 0x60;
  int result_ = 0;  // of the last call that has one
  const std::map<std::string, Field> fields_;
  const std::map<std::string, std::function<void(const Args&)>> orders_;
};

}  // namespace pyxis::test
