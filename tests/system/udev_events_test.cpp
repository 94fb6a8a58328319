#include "system/udev_events.h"

#include <linux/netlink.h>
#include <sys/socket.h>
#include <unistd.h>

#include "data/cases.h"

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

}  // namespace
}  // namespace pyxis::test
