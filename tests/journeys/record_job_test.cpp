// pyxisjob --record against the stand-in writer as a process: killed in mid run and resumed, no serial goes out twice.
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "pyxisfolder/folder.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class RecordJob : public Bench {
 protected:
  void SetUp() override {
    setenv("PYXISWRITER_SOCKET", Path("writer.sock").c_str(), 1);
    writer_ = fork();
    if (writer_ == 0) {
      execl(PYXIS_BIN_DIR "/pyxiswriter", "pyxiswriter", "--fresh-chips", nullptr);
      _exit(127);
    }
    ASSERT_TRUE(pyxis::folder::BuildProgramFolder(Path("work")));
    while (access(Path("writer.sock").c_str(), F_OK) != 0) {
      ASSERT_EQ(waitpid(writer_, nullptr, WNOHANG), 0);
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
  void TearDown() override {
    kill(writer_, SIGTERM);
    waitpid(writer_, nullptr, 0);
    unsetenv("PYXISWRITER_SOCKET");
  }

  // Runs the job. With `enough` it is killed as soon as the record's size in bytes is that; else the exit code.
  int Job(const std::string& arguments, std::size_t enough = 0) const {
    const pid_t job = fork();
    if (job == 0) {
      const std::string command = "exec " PYXIS_BIN_DIR "/pyxisjob --folder " + Path("work") + " --link vendor " +
                                  arguments + " >/dev/null 2>" + Path("err") + " </dev/zero";
      execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      _exit(127);
    }
    int status = 0;
    pid_t ended = 0;
    while (enough > 0 && (ended = waitpid(job, &status, WNOHANG)) == 0 && Contents("line.jsonl").size() < enough)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (ended == 0 && enough > 0) kill(job, SIGKILL);
    if (ended == 0) waitpid(job, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  std::vector<nlohmann::json> Lines() const {
    const Bytes bytes = Contents("line.jsonl");
    std::istringstream text(std::string(bytes.begin(), bytes.end()));
    std::vector<nlohmann::json> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(nlohmann::json::parse(line));
    return lines;
  }
  Texts GoodSerials() const {
    Texts serials;
    for (const auto& line : Lines())
      if (line.contains("serial") && line["result"] == "OK") serials.push_back(line["serial"]);
    return serials;
  }
  std::string Told() const {
    const Bytes bytes = Contents("err");
    return {bytes.begin(), bytes.end()};
  }
  std::string Record() const { return " --record " + Path("line.jsonl"); }
  std::string Sample() const { return " --ic QV8348 " + Path("work/samples/QV8348.hex"); }

 private:
  pid_t writer_ = -1;
};

TEST_F(RecordJob, NoSerialTwiceNoneSkippedAfterKills) {
  const std::string series = "serial --length 2 --address 3FA --start FD --amount 6 --chips 6" + Record();
  EXPECT_EQ(Job(series + Sample(), 1), -SIGKILL);  // before or while the first chip is programmed
  for (int kill = 0; kill < 3; ++kill)
    EXPECT_EQ(Job(series + " --resume" + Sample(), Contents("line.jsonl").size() + 700), -SIGKILL) << Told();
  EXPECT_EQ(Job(series + Sample()), 1);  // its serials have gone out
  EXPECT_EQ(Job(series + " --resume --direction high" + Sample()), 1);
  EXPECT_NE(Told().find("direction low, not high"), std::string::npos) << Told();
  EXPECT_EQ(Job("serial --length 2 --address 3FA --start FD --amount 6 --resume"), 2);  // of which record?
  EXPECT_EQ(Job(series + " --resume" + Sample()), 0) << Told();
  EXPECT_EQ(GoodSerials(), (Texts{"00FD", "00FE", "00FF", "0100", "0101", "0102"}));
  EXPECT_EQ(Job(series + " --resume" + Sample()), 0);
  EXPECT_EQ(GoodSerials().size(), 6U);
  EXPECT_EQ(Job("auto" + Record()), 1);  // which serial would it burn?
}

TEST_F(RecordJob, ALineALoadATaskAndAChip) {
  const std::string series = "serial --length 2 --address 3FA --start 1 --amount 9 --chips 1" + Record();
  EXPECT_EQ(Job("load" + Record() + Sample()), 0) << Told();
  EXPECT_EQ(Job("auto" + Record()), 0);
  EXPECT_EQ(Job("blank --no" + Record()), 1);  // the chip isn't blank any more
  EXPECT_EQ(Job(series), 0) << Told();
  // The series has taken the job's place: which job it is can't be known.
  EXPECT_EQ(Job(series + " --resume"), 1);
  EXPECT_NE(Told().find("load it again"), std::string::npos) << Told();
  EXPECT_EQ(Job("load" + Record() + Sample()), 0);
  EXPECT_EQ(Job(series + " --resume"), 0) << Told();
  const auto lines = Lines();
  Texts told;
  for (const auto& line : lines) {
    told.push_back(line["command"].get<std::string>() + " " + line["result"].get<std::string>());
    EXPECT_EQ(line["ic"], "QV8348");
    EXPECT_EQ(line["checksum"], lines.at(0)["checksum"]) << line;
    EXPECT_EQ(line["converted"].get<std::string>().size(), std::string("2026-05-04T07:08:09").size());
    EXPECT_EQ(line["writer"]["identity"], "PYX STANDALONE LOADER_V1.1");
  }
  EXPECT_EQ(told, (Texts{"load OK", "auto OK", "blank NG", "serial OK", "load OK", "serial OK"}));
  EXPECT_EQ(GoodSerials(), (Texts{"0001", "0002"}));
  // What can't be recorded isn't done.
  EXPECT_EQ(Job("auto --record " + Path("none/line.jsonl")), 1);
}

}  // namespace
}  // namespace pyxis::test
