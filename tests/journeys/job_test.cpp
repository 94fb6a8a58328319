// pyxisjob as a script runs it, in this process: words, standard input, what comes out, exit codes, the line's record.
#include "job.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "data/cases.h"
#include "link/identification.h"
#include "platform/text.h"
#include "shell/process_state.h"
#include "support/full_disk.h"
#include "support/standin_bench.h"

namespace pyxis::test {
namespace {

struct PowerCut {};

class CutClock : public FakeClock {
 public:
  std::function<bool()> cut = [] { return false; };
  std::uint32_t TickCount() override {
    if (cut()) throw PowerCut{};
    return FakeClock::TickCount();
  }
};

class JobScript : public StandinBench, public ::testing::WithParamInterface<std::string> {
 protected:
  JobScript() : StandinBench(Transport::Vendor) {
    for (const char* label : {"QV8348", "QVL04", "QVL09", "QV4204"}) PutFolderFor(label);
    std::filesystem::current_path(folder);
    using C = const Case&;
    auto& on = script.actions;
    auto& shows = script.states;
    on["run"] = [this](C c) {
      Run(c[1], c[2]);
      cutClock.cut = [] { return false; };
      fullDisk.reset();
    };
    on["chip-info at each lost transfer"] = [this](C) {
      int lost = 0;
      for (exit = 1; exit == 1 && lost < 500; ++lost) {
        writer.faults.disconnectAfter = lost;
        Run("chip-info", "");
        EXPECT_EQ(exit, vendor.pluggedIn && lost > 0 ? 0 : 1) << lost;
        vendor.pluggedIn = true;
      }
      EXPECT_GT(lost, 10);
    };
    // Cut off once the record has grown by so many bytes.
    on["cut"] = [this](C c) {
      const std::size_t enough = Contents("line.jsonl").size() + static_cast<std::size_t>(c.Number(1));
      cutClock.cut = [=, this] { return Contents("line.jsonl").size() >= enough; };
      EXPECT_THROW(Run(c[2], ""), PowerCut);
      cutClock.cut = [] { return false; };
    };
    // For one run, from when the record has so many bytes.
    on["full disk"] = [this](C c) {
      const auto enough = static_cast<std::size_t>(c.Number(1));
      cutClock.cut = [=, this] {
        if (const std::size_t size = Contents("line.jsonl").size(); !fullDisk && size >= enough) fullDisk.emplace(size);
        return false;
      };
    };
    on["fresh chips"] = [this](C) { writer.freshChips = true; };
    on["new chip"] = [this](C) { writer.chip = {}; };
    on["fault"] = [this](C c) { EXPECT_TRUE(SetFault(writer.faults, c[1])); };
    on["link"] = [this](C c) { vendor.pluggedIn = c[1] == "in"; };
    on["file"] = [this](C c) { WriteText(c[1], c[2]); };
    on["replace"] = [this](C c) {
      std::string text = Text(c[1]);
      ASSERT_NE(text.find(c[2]), text.npos);
      for (std::size_t at; (at = text.find(c[2])) != text.npos;) text.replace(at, c[2].size(), c[3]);
      WriteText(c[1], text);
    };
    // The link goes at each transfer in turn: what is told as good has the job that was loaded.
    on["record of a load that loses the writer"] = [this](C c) {
      const std::vector<std::uint8_t> held(writer.OptionArea().begin(), writer.OptionArea().end());
      int good = 0;
      for (int lost = 1; lost < 2000 && good < 3; ++lost) {
        WriteText("line.jsonl", "");
        vendor.pluggedIn = true;
        std::ranges::copy(held, writer.OptionArea().begin());
        writer.faults.disconnectAfter = lost;
        Run(c[1], "");
        const auto lines = Lines();
        if (lines.empty() || lines[0]["result"] != "OK") continue;
        EXPECT_EQ(All(lines[0]["ic"], lines[0]["checksum"]), All(c[2], c[3])) << lost;
        EXPECT_TRUE(good > 0 || !vendor.pluggedIn);  // the first isn't a whole load yet
        ++good;
      }
      EXPECT_EQ(good, 3);
    };
    on["says"] = [this](C c) { EXPECT_NE(err.find(c[1]), err.npos) << err; };
    on["serials"] = [this](C c) {
      Texts serials, wanted(c.cells.begin() + 1, c.cells.end());
      for (const auto& line : Lines())
        if (line.contains("serial") && line["result"] == "OK") serials.push_back(line["serial"]);
      EXPECT_EQ(serials, wanted);
    };
    on["record"] = [this](C c) {
      Texts told, wanted(c.cells.begin() + 1, c.cells.end());
      for (const auto& line : Lines()) {
        told.push_back(line["command"].get<std::string>() + " " + line["result"].get<std::string>());
        EXPECT_EQ(All(line["ic"], line["checksum"]), All("QV8348", Lines()[0]["checksum"])) << line;
        EXPECT_EQ(line["converted"], "2015-03-05T09:07:03");
        EXPECT_EQ(line["writer"]["identity"], writer.identity);
      }
      EXPECT_EQ(All(told, Lines()[0]["file"]), All(wanted, "samples/QV8348.hex"));
    };
    shows["exit"] = [this] { return std::to_string(exit); };
    shows["out"] = [this] { return out; };
    shows["err"] = [this] { return err; };
    for (const char* file : {"serial.txt", "buffer_data.prog"}) shows[file] = [this, file] { return Text(file); };
    shows["fuses"] = [this] { return std::to_string(writer.OptionArea()[36] & 7); };
    shows["isp of the package"] = [this] { return std::to_string(Contents("buffer_option.prog").at(76)); };
    shows["isp"] = [this] { return std::to_string(writer.OptionArea()[76]); };
    shows["limit"] = [this] { return std::to_string(writer.OptionArea()[83]); };
    shows["direction"] = [this] { return std::to_string(writer.OptionArea()[53] & 15); };
    shows["protected"] = [this] { return std::to_string(writer.OptionArea()[36] >> 5 & 1); };
  }
  ~JobScript() override { std::filesystem::current_path(before_); }

  std::string Text(const std::string& name) const {
    const Bytes bytes = Contents(name);
    return {bytes.begin(), bytes.end()};
  }
  std::vector<nlohmann::json> Lines() const {
    std::vector<nlohmann::json> lines;
    for (const std::string& line : Parts(Text("line.jsonl"), '\n')) lines.push_back(nlohmann::json::parse(line));
    return lines;
  }

  // A process: $8348 stands for an IC and its file.
  void Run(std::string words, const std::string& input) {
    const std::string sample = "--ic QV8348 samples/QV8348.hex";
    if (const auto at = words.find("$8348"); at != words.npos) words.replace(at, 5, sample);
    CloseTransport();
    ResetProcessState();
    job::Job job;
    TheMachine().op = &job.op;
    TheMachine().clock = &cutClock;
    TheMachine().language = &language;
    TheMachine().usb = &usb;
    TheMachine().vendor = &vendor;
    usb.pluggedIn = false;
    Texts arguments = Parts("pyxisjob --folder . " + words, ' ');
    std::vector<char*> argv;
    for (std::string& word : arguments) argv.push_back(word == "''" ? (word.clear(), word.data()) : word.data());
    std::istringstream in(input);
    std::streambuf* const keyboard = std::cin.rdbuf(in.rdbuf());
    std::cin.clear();
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const auto end = [&] {
      out = testing::internal::GetCapturedStdout();
      err = testing::internal::GetCapturedStderr();
      std::cin.rdbuf(keyboard);
      TheMachine().diagnostics = nullptr;
      TheMachine().op = &op;
    };
    try {
      exit = RunCommandLine(job, static_cast<int>(argv.size()), argv.data());
    } catch (const PowerCut&) {
      end();
      throw;
    }
    end();
  }

  CutClock cutClock;
  std::optional<FullDisk> fullDisk;
  std::string out, err;
  int exit = -1;
  Script script;

 private:
  const std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_P(JobScript, Runs) { script.Run("pyxisjob.tsv", GetParam()); }
INSTANTIATE_TEST_SUITE_P(All, JobScript, ::testing::ValuesIn(SectionsBut("pyxisjob.tsv", {})));

}  // namespace
}  // namespace pyxis::test
