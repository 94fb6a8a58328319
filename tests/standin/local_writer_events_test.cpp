#include "standin/local_writer_events.h"

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include "standin/local_server.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

class LocalWriter : public Bench {
 protected:
  // "+" for an arrival and "-" for a removal; each carries the interface class.
  std::string News(standin::LocalWriterEvents& events) {
    std::string news;
    const bool waits = IsReady(events);
    for (const DeviceEvent& event : events.Take()) {
      EXPECT_NE(event.deviceName.find("{6580898b-0493-40b6-87aa-d307188d4e24}"), std::string::npos);
      news += event.kind == DeviceEvent::Kind::Arrival ? "+" : "-";
    }
    EXPECT_TRUE(waits || news.empty()) << "the main loop would not have woken";
    EXPECT_FALSE(IsReady(events)) << "the main loop would spin";
    return news;
  }
  static bool IsReady(standin::LocalWriterEvents& events) {
    pollfd wait{events.Descriptors().at(0), POLLIN, 0};
    return poll(&wait, 1, 0) > 0;
  }
  std::unique_ptr<standin::LocalServer> Start() {
    return std::make_unique<standin::LocalServer>(writer, Path("w.sock"));
  }

  standin::WriterModel writer;
};

TEST_F(LocalWriter, ComesAndGoes) {
  standin::LocalWriterEvents events(Path("w.sock"));
  Write("another.sock", {});
  EXPECT_EQ(News(events), "");
  auto server = Start();
  ASSERT_TRUE(server->Listening());
  EXPECT_EQ(News(events), "+");
  std::filesystem::rename(Path("another.sock"), Path("third.sock"));
  EXPECT_EQ(News(events), "");
  server->Serve(0);
  standin::LocalWriterEvents late(Path("w.sock"));  // the writer is there already
  EXPECT_EQ(News(events) + News(late), "");
  server.reset();
  EXPECT_FALSE(std::filesystem::exists(Path("w.sock")));
  EXPECT_EQ(News(events), "-");
  EXPECT_EQ(News(late), "-");
  server = Start();
  server.reset();
  server = Start();
  EXPECT_EQ(News(events), "+");
  server.reset();
  server = Start();
  EXPECT_EQ(News(events), "-+");
}

TEST_F(LocalWriter, ThatIsKilledGoesAndItsSocketIsReplaced) {
  standin::LocalWriterEvents events(Path("w.sock"));
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    auto server = Start();
    if (write(ready[1], "x", 1) != 1) _exit(1);
    for (;;) server->Serve(1000);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  EXPECT_EQ(News(events), "+");
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(std::filesystem::exists(Path("w.sock")));
  EXPECT_EQ(News(events), "-");
  standin::LocalWriterEvents late(Path("w.sock"));
  EXPECT_EQ(News(late), "");
  auto server = Start();
  ASSERT_TRUE(server->Listening());
  EXPECT_EQ(News(events), "+");
  EXPECT_EQ(News(late), "+");
  auto second = Start();  // took the name over, and keeps it
  server.reset();
  EXPECT_TRUE(std::filesystem::exists(Path("w.sock")));
  for (const int end : ready) close(end);
}

TEST_F(LocalWriter, WithoutADirectoryHasNoEvents) {
  standin::LocalWriterEvents events(Path("none/w.sock"));
  EXPECT_TRUE(events.Descriptors().empty() && events.Take().empty());
  EXPECT_FALSE(standin::LocalServer(writer, Path("none/w.sock")).Listening());
  EXPECT_FALSE(standin::LocalServer(writer, Path(std::string(100, 'x'))).Listening());
}

}  // namespace
}  // namespace pyxis::test
