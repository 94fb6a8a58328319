#include "soak/recorded_line.h"

#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <streambuf>

#include "job.h"
#include "link/identification.h"
#include "shell/process_state.h"

namespace pyxis::soak {

namespace {

struct PowerCut {};

constexpr std::uint64_t kLooksOfAProcess = 700;

// Throws at the so-manieth look.
class CutClock : public test::FakeClock {
 public:
  std::uint64_t left = ~std::uint64_t{0};
  std::uint32_t TickCount() override {
    if (left-- == 0) throw PowerCut{};
    return FakeClock::TickCount();
  }
};

// What the runner prints is for nobody.
class Silence {
 public:
  Silence() {
    std::fflush(stdout);
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nothing, 1);
    dup2(nothing, 2);
    close(nothing);
  }
  ~Silence() {
    std::fflush(stdout);
    dup2(out_, 1);
    dup2(err_, 2);
    close(out_);
    close(err_);
  }

 private:
  const int out_ = dup(1), err_ = dup(2);
};

}  // namespace

// Standard input of `serial --wait`: each line is a chip that lies in the socket.
class RecordedLine::Operator : public std::streambuf {
 public:
  explicit Operator(RecordedLine& line) : line_(line), before_(std::cin.rdbuf(this)) { std::cin.clear(); }
  ~Operator() override { std::cin.rdbuf(before_); }

 protected:
  int_type underflow() override {
    if (line_.EndsTheDay()) return traits_type::eof();
    line_.PutChip();
    setg(&feed_, &feed_, &feed_ + 1);
    return feed_;
  }

 private:
  RecordedLine& line_;
  std::streambuf* const before_;
  char feed_ = '\n';
};

RecordedLine::RecordedLine(test::Transport transport, std::uint64_t seed, Totals& totals)
    : StandinBench(transport), transport_(transport), chance_(seed), totals_(totals) {
  sample_ = PutFolderFor("QV8348");
  program_ = TheAppState().program;
}

RecordedLine::Ended RecordedLine::Process(const std::string& words, bool mayBeCut) {
  CloseTransport();  // as the system does for a process that has gone
  ResetProcessState();
  TheAppState().program = program_;
  job::Job job;
  CutClock cutClock;
  cutClock.step = 25;
  if (mayBeCut) cutClock.left = chance_.Below(kLooksOfAProcess);
  Machine& machine = TheMachine();
  machine.op = &job.op;
  machine.clock = &cutClock;
  machine.language = &language;
  machine.diagnostics = machine.trace = nullptr;
  if (transport_ == test::Transport::Usb)
    machine.usb = &usb;
  else
    machine.vendor = &vendor;
  CLI::App app;
  job::AddLoad(app, job);
  job::AddSerial(app, job);
  const Silence silence;
  Operator standsThere(*this);
  try {
    app.parse(words);
    return {.exitCode = job.exitCode};
  } catch (const PowerCut&) {
    ++totals_.failures["power cut"];
    return {.cut = true};
  }
}

void RecordedLine::PutChip() {
  if (inSocket_ != 0) chips_[inSocket_ - 1] = writer.chip.burnt;
  inSocket_ = Lines().size() + 1;
  writer.chip = {};
  writer.faults.failTask.reset();
  if (chance_.OneIn(12)) {
    ++totals_.failures["task failed"];
    writer.faults.failTask = 1;
  }
  ++totals_.chips;
  ++presses_;
}

std::string RecordedLine::SeriesWords() const {
  return "serial --length " + Hex(series_.length) + " --address " + Hex(series_.address) + " --start " +
         Hex(series_.first) + " --amount " + Hex(series_.amount) + " --direction " +
         (series_.direction == 0 ? "low" : "high") + " --wait --record " + Path("line.jsonl");
}

test::Texts RecordedLine::Lines() const {
  const Bytes file = Contents("line.jsonl");
  test::Texts lines;
  for (auto at = file.begin(); at != file.end();) {
    const auto feed = std::find(at, file.end(), '\n');
    if (feed == file.end()) break;
    lines.emplace_back(at, feed);
    at = feed + 1;
  }
  return lines;
}

// What else a power cut may have done to the last line. One that has lost its end is a chip that counts as not done;
// the beginning of another one is of a chip that wasn't touched yet.
void RecordedLine::Tear() {
  Bytes file = Contents("line.jsonl");
  if (file.empty() || !chance_.OneIn(2)) return;
  ++totals_.failures["record torn"];
  if (file.back() != '\n') {
    const auto start = std::find(file.rbegin(), file.rend(), '\n').base();
    file.resize(static_cast<std::size_t>(start - file.begin()) +
                chance_.Below(static_cast<std::uint64_t>(file.end() - start) + 1));
  } else if (chance_.OneIn(2)) {
    file.resize(file.size() - 1 - chance_.Below(16));
  } else {
    const std::string last = Lines().back();
    file.insert(file.end(), last.begin(), last.begin() + static_cast<std::ptrdiff_t>(chance_.Below(last.size())));
  }
  if (chance_.OneIn(4)) file.insert(file.end(), chance_.Below(600), 0);
  Write("line.jsonl", file);
}

std::uint64_t RecordedLine::CheckRecord() const {
  Series count = series_;
  const test::Texts lines = Lines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto line = nlohmann::json::parse(lines[i]);
    if (line.at("result") != "OK" || line.at("command") != "serial") continue;
    if (line.at("serial") != count.Shown())
      throw Difference("the record tells " + line.at("serial").get<std::string>() + ", expected " + count.Shown());
    if (!chips_.contains(i) || chips_.at(i) != count.Chip(data_, Unit::Word))
      throw Difference("the chip of line " + std::to_string(i + 1) + " doesn't carry " + count.Shown());
    ++count.given;
  }
  return count.given;
}

void RecordedLine::Run() {
  ++totals_.runs;
  series_ = {};
  series_.length = 1 + chance_.Below(16);
  series_.address = chance_.Below(0x3FC - series_.length);
  series_.direction = static_cast<int>(chance_.Below(2));
  series_.amount = 1 + chance_.Below(40);
  const Number top = ~Number{0} >> 8 * (16 - series_.length);
  const Number highest = top - (series_.amount - 1);  // ends at the very last number
  series_.first = chance_.OneIn(3) ? highest : std::min((Number{chance_.Next()} << 64 | chance_.Next()) & top, highest);
  series_.road = chance_.OneIn(2) ? Road::Menu : Road::Selection;
  chips_.clear();
  inSocket_ = 0;
  writer.freshChips = false;
  std::filesystem::remove(Path("line.jsonl"));
  const std::string load = "load --ic QV8348 " + Path(sample_);
  if (Process(load, false).exitCode != 0) throw Difference("a sound load has failed");
  data_ = Contents("buffer_data.prog");
  const std::string start =
      SeriesWords() + (series_.road == Road::Selection ? " --ic QV8348 " + Path(sample_) : std::string());
  for (std::uint64_t done = 0; done < series_.amount;) {
    if (series_.road == Road::Menu) {
      Ended loaded{.cut = true};
      while (loaded.cut) loaded = Process(load, true);
      if (loaded.exitCode != 0) throw Difference("a load after a power cut has failed");
    }
    const test::Texts lines = Lines();
    const bool begun = !Contents("line.jsonl").empty();
    const std::uint64_t before = presses_;
    const bool resume = begun && std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
                          return line.find("\"serial\"") != std::string::npos;
                        });
    const Ended ended = Process(start + (resume ? " --resume" : ""), true);
    if (inSocket_ != 0) chips_[inSocket_ - 1] = writer.chip.burnt;
    inSocket_ = 0;
    if (ended.cut) Tear();
    done = CheckRecord();
    if (!ended.cut && ended.exitCode == 0 && done < series_.amount && presses_ == before)
      throw Difference("the runner takes a series for done after " + std::to_string(done) + " of " +
                       std::to_string(series_.amount));
  }
  totals_.good += series_.amount;
  const std::uint64_t before = presses_;
  if (Process(load, false).exitCode != 0) throw Difference("a sound load has failed");
  if (Process(start + " --resume", false).exitCode != 0 || Process(start, false).exitCode != 1 || presses_ != before)
    throw Difference("a series that is done goes on, or once more");
}

}  // namespace pyxis::soak
