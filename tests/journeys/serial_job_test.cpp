// pyxisjob serial as a script runs it, against the stand-in writer as a process.
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "pyxisfolder/folder.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class SerialJob : public Bench {
 protected:
  void SetUp() override {
    const std::string socket = Path("writer.sock");
    setenv("PYXISWRITER_SOCKET", socket.c_str(), 1);
    writer_ = fork();
    if (writer_ == 0) {
      execl(PYXIS_BIN_DIR "/pyxiswriter", "pyxiswriter", "--fresh-chips", "--fail-task", "2", nullptr);
      _exit(127);
    }
    ASSERT_TRUE(pyxis::folder::BuildProgramFolder(Path("work")));
    while (access(socket.c_str(), F_OK) != 0) {
      ASSERT_EQ(waitpid(writer_, nullptr, WNOHANG), 0);
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

  void TearDown() override {
    kill(writer_, SIGTERM);
    waitpid(writer_, nullptr, 0);
    unsetenv("PYXISWRITER_SOCKET");
  }

  // Standard output alone, where `arguments` don't say otherwise.
  std::pair<std::string, int> Job(const std::string& arguments, const std::string& input = "") const {
    const std::string command =
        "printf '" + input + "' | " PYXIS_BIN_DIR "/pyxisjob --folder " + Path("work") + " --link vendor " + arguments;
    std::FILE* pipe = popen(command.c_str(), "r");
    std::string out;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) out += static_cast<char>(c);
    return {out, WEXITSTATUS(pclose(pipe))};
  }

 private:
  pid_t writer_ = -1;
};

TEST_F(SerialJob, PrintsALineAChip) {
  const std::string place = "serial --length 2 --address 3FA ";
  const std::string first = "QV8348 " + Path("work/samples/QV8348.hex");
  // clang-format off
  for (const auto& [arguments, input, out, exitCode] : Table<std::string, std::string, std::string, int>{
           {place + "--start 0E --amount 2 2>&1 >/dev/null", "", "The writer holds no job\n", 1},
           {place + "--start 0E --amount 3 --chips 3 --ic " + first + " 2>/dev/null", "",
            "000E OK\n000F NG\n000F OK\nOK 2, NG 1, Total 3, next 0010\n", 1},
           {place + "--start ff --amount 10 --wait 2>/dev/null", "\\n\\n\\n",
            "00FF OK\n0100 OK\n0101 OK\nOK 3, NG 0, Total 3, next 0102\n", 0},
           {"--json " + place + "--start 1 --amount 1 --direction high", "",
            "{\"chip\":1,\"command\":\"serial\",\"result\":0,\"serial\":\"0001\"}\n{\"command\":\"serial\",\"messages\":"
            "[\"Serial Number Program Complete\"],\"next\":\"2\",\"ng\":0,\"ok\":1,\"result\":0,\"total\":1}\n",
            0},
           {"--json serial --length 2 --address 3FB --start 1 --amount 1", "",
            "{\"command\":\"serial\",\"messages\":[\"S/N End Address > 0x3FC\"],\"result\":1}\n", 1},
           {"serial --length 2 --address 0 --start 00001 --amount 1 2>&1", "",
            "Start serial 00001 is longer than the length\n", 1},
           {"serial --length 2 --address 0 --start 1 --amount 0 2>&1", "", "Please Keyin 'S/N Amount'. ( >= 1 )\n", 1},
           {place + "--start '' --amount 1 2>/dev/null", "", "", 2},
           {place + "--start 1 --amount 9 --wait --chips 2 2>/dev/null", "\\n",
            "0001 OK\nOK 1, NG 0, Total 1, next 0002\n", 1},
           {place + "--start 1G --amount 1 2>/dev/null", "", "", 2},
           {"convert --code 0x99999 samples/QV8348.hex 2>&1", "",
            "0x99999 is no known IC's code; pyxisjob ics lists them\n", 2},
           {"convert --ic QV9999 samples/QV8348.hex 2>&1", "", "QV9999 is no known IC; pyxisjob ics lists them\n", 2},
           {place + "--start 1 --amount 1 --ic QV8348 2>/dev/null", "", "", 2}}) {
    // clang-format on
    EXPECT_EQ(Job(arguments, input), std::pair(out, exitCode)) << arguments;
  }
}

}  // namespace
}  // namespace pyxis::test
