#include "platform/device_events.h"

#include <linux/netlink.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include "data/cases.h"
#include "standin/local_server.h"
#include "system/local_writer_events.h"
#include "system/udev_events.h"

namespace pyxis::test {
namespace {

TEST(UdevEvents, AreTheWritersAlone) {
  ForEachCase("system.tsv", "udev", [](const Case& c) {
    std::map<std::string, std::string> properties{{"DEVPATH", "/devices/usb1/1-2"}};
    for (const std::string& pair : Parts(c[0], ';'))
      properties[pair.substr(0, pair.find('='))] = pair.substr(pair.find('=') + 1);
    const auto event = EventOfUdev(properties);
    EXPECT_EQ(!event ? "none" : event->kind == DeviceEvent::Kind::Arrival ? "+" : "gone", c[1]);
    if (event) {
      EXPECT_EQ(event->deviceName, "/devices/usb1/1-2#{6580898b-0493-40b6-87aa-d307188d4e24}");
    }
  });
}

TEST(UdevEvents, ListenWhereTheKernelTells) {
  const int kernel = socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_KOBJECT_UEVENT);
  EXPECT_EQ(UdevEvents().Descriptors().size(), kernel >= 0 ? 1U : 0U);
  if (kernel >= 0) close(kernel);
  EXPECT_TRUE(UdevEvents().Take().empty());
}

// A cable that goes from one plug to another: udev may tell the two devices' events in the wrong order.
TEST(UdevEvents, LeaveOutARemovalThatAnArrivalHasOvertaken) {
  for (const auto& [what, told, news] : Table<const char*, std::vector<const char*>, std::string>{
           {"in order", {"remove 7", "add 9"}, "-+"},
           {"overtaken", {"add 9", "remove 7"}, "+"},
           {"and gone again", {"add 9", "remove 12", "remove 7"}, "+-"},
           {"by the second of two", {"add 9", "add 5", "remove 7"}, "++"},
           {"longer numbers", {"add 9", "remove 10", "add 101", "remove 99"}, "+-+"},
           {"without numbers", {"add", "remove"}, "+-"}}) {
    SCOPED_TRACE(what);
    UdevOrder order;
    std::string seen;
    for (const std::string text : told) {
      const std::size_t blank = text.find(' ');
      std::map<std::string, std::string> properties{
          {"ACTION", text.substr(0, blank)}, {"DEVTYPE", "usb_device"}, {"PRODUCT", "7a31/1602/100"}};
      if (blank != std::string::npos) properties["SEQNUM"] = text.substr(blank + 1);
      if (const auto event = order.EventOf(properties)) seen += event->kind == DeviceEvent::Kind::Arrival ? '+' : '-';
    }
    EXPECT_EQ(seen, news);
  }
}

class LocalWriter : public Bench {
 protected:
  // "+" for an arrival and "-" for a removal; each carries the interface class.
  std::string News(LocalWriterEvents& events) {
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
  static bool IsReady(LocalWriterEvents& events) {
    pollfd wait{events.Descriptors().at(0), POLLIN, 0};
    return poll(&wait, 1, 0) > 0;
  }
  std::unique_ptr<standin::LocalServer> Start() {
    return std::make_unique<standin::LocalServer>(writer, Path("w.sock"));
  }

  standin::WriterModel writer;
};

TEST_F(LocalWriter, ComesAndGoes) {
  LocalWriterEvents events(Path("w.sock"));
  Write("another.sock", {});
  EXPECT_EQ(News(events), "");
  auto server = Start();
  ASSERT_TRUE(server->Listening());
  EXPECT_EQ(News(events), "+");
  std::filesystem::rename(Path("another.sock"), Path("third.sock"));
  EXPECT_EQ(News(events), "");
  server->Serve(0);
  LocalWriterEvents late(Path("w.sock"));  // the writer is there already
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
  LocalWriterEvents events(Path("w.sock"));
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
  LocalWriterEvents late(Path("w.sock"));
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
  LocalWriterEvents events(Path("none/w.sock"));
  EXPECT_TRUE(events.Descriptors().empty() && events.Take().empty());
  EXPECT_FALSE(standin::LocalServer(writer, Path("none/w.sock")).Listening());
  EXPECT_FALSE(standin::LocalServer(writer, Path(std::string(100, 'x'))).Listening());
}

}  // namespace
}  // namespace pyxis::test
