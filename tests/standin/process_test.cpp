// pyxiswriter and what talks to it over the local socket, as processes: the library velmarapi and --tell.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "link/writer_commands.h"
#include "standin/local_client.h"
#include "support/bench.h"
#include "system/vendor_library.h"

namespace pyxis::test {
namespace {

using standin::LocalClient;
using std::chrono::milliseconds;

class Process : public Bench {
 protected:
  ~Process() override {
    if (child_ > 0) Stop(SIGKILL);
  }
  // Its standard error goes to the file "err".
  static pid_t Run(const std::string& program, const Texts& words, const std::string& err, int out = -1) {
    const pid_t child = fork();
    if (child != 0) return child;
    std::vector<char*> arguments{const_cast<char*>(program.c_str())};
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    static_cast<void>(std::freopen(err.c_str(), "w", stderr) != nullptr && (out < 0 || dup2(out, 1) == 1));
    execv((std::string(PYXIS_BIN_DIR "/") + program).c_str(), arguments.data());
    _exit(127);
  }
  static int End(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  void Start(Texts words = {}) {
    words.insert(words.begin(), {"--socket", Socket()});
    child_ = Run("pyxiswriter", words, Path("err"));
    LocalClient client;
    while (!client.Open(Socket())) ASSERT_EQ(waitpid(child_, nullptr, WNOHANG), 0);
  }
  int Stop(int signal = SIGTERM) {
    kill(child_, signal);
    return End(std::exchange(child_, -1));
  }
  int Tell(const std::string& words) {
    return End(Run("pyxiswriter", {"--socket", Socket(), "--tell", words}, Path("told")));
  }
  std::string Socket() const { return Path("w.sock"); }
  std::string Identity(LocalClient& client) {
    std::string text(kIdentitySize, ' ');
    return client.Read(OP_IDENTITY, {reinterpret_cast<std::uint8_t*>(text.data()), text.size()}) ? text : "";
  }
  // On a busy machine a new connection may take longer than it is given.
  static bool Soon(const std::function<bool()>& holds) {
    for (int i = 0; i < 100; ++i)
      if (holds()) return true;
    return false;
  }
  const std::string kIdentity = "PYX STANDALONE LOADER_V1.1";

 private:
  pid_t child_ = -1;
};

TEST_F(Process, StandsStillOrEndsAfterSoManyCalls) {
  Start({"--stall-after", "1"});
  LocalClient client, another;
  ASSERT_TRUE(client.Open(Socket()) && another.Open(Socket()));
  EXPECT_EQ(Identity(client), kIdentity);
  for (const char* stall : {"", "stall"}) {
    EXPECT_TRUE(*stall == '\0' || LocalClient().Tell(Socket(), stall));
    client.SetTimeout(milliseconds(20));
    EXPECT_EQ(Identity(client), "");
    EXPECT_EQ(Tell("sleep"), 1);
    EXPECT_EQ(Tell("no-fault"), 0);
    // Without another Open: the next call connects anew.
    client.SetTimeout(milliseconds(5000));
    EXPECT_TRUE(Soon([&] { return Identity(client) == kIdentity; }));
    EXPECT_EQ(Identity(another), kIdentity);
  }
  another.Close();
  EXPECT_EQ(Identity(another), "");
  EXPECT_EQ(Tell("disconnect-after 2"), 0);
  for (const std::string& identity : {kIdentity, kIdentity, std::string()}) EXPECT_EQ(Identity(client), identity);
  EXPECT_EQ(Stop(), 0);  // it has ended by itself
  EXPECT_EQ(Tell("stall"), 1);
}

TEST_F(Process, AStateThatCantBeTakenOverIsToldAndLeftAlone) {
  const Texts state{"--state", Path("state")};
  Start(state);
  EXPECT_EQ(Stop(), 0);
  EXPECT_FALSE(std::filesystem::exists(Socket()));
  const Bytes kept = Contents("state");
  EXPECT_GT(kept.size(), 0x10800U);
  Start(state);
  EXPECT_EQ(Stop(), 0);
  EXPECT_EQ(All(Contents("state"), Contents("err")), All(kept, Bytes{}));
  const Bytes cut(kept.begin(), kept.end() - 1);
  Write("state", cut);
  Start(state);
  EXPECT_EQ(Stop(), 1);
  EXPECT_EQ(Contents("state"), cut);
  EXPECT_FALSE(Contents("err").empty());
}

TEST_F(Process, AStandardOutputWithoutAReaderKillsNothing) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  EXPECT_EQ(End(Run("pyxisjob", {"ics", "--json"}, Path("err"), ends[1])), 0);
  close(ends[1]);
}

// The library as a program loads it.
TEST_F(Process, VelmarapiConnectsAnewAtTheNextCall) {
  setenv("PYXISWRITER_SOCKET", Socket().c_str(), 1);
  VendorLibrary library(PYXIS_BIN_DIR);
  EXPECT_NE(library.VMOpen(0x9899, 0, 0), 0);
  Start();
  EXPECT_NE(library.VMOpen(0x9898, 0, 0), 0);
  EXPECT_EQ(library.VMOpen(0x9899, 0, 0), 0);
  const Bytes peek{0, 0, 0xFA, 0x8F}, mode{0};
  const auto model = [&] {
    std::uint8_t byte = 0;
    const bool good = library.VMWrite(OP_SET_MODE, mode.data(), 1) == 0 &&
                      library.VMWrite(OP_SET_ADDRESS, peek.data(), 4) == 0 &&
                      library.VMRead(OP_READ_MEMORY, &byte, 1) == 0;
    return good ? byte : 0;
  };
  EXPECT_EQ(model(), 0x98);
  Stop(SIGKILL);
  EXPECT_EQ(model(), 0);
  Start({"--model", "KM49"});
  EXPECT_TRUE(Soon([&] { return model() == 0x99; }));
  library.VMClose();
  EXPECT_EQ(model(), 0);
  unsetenv("PYXISWRITER_SOCKET");
}

}  // namespace
}  // namespace pyxis::test
