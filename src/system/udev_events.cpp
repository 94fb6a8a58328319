#include "system/udev_events.h"

#include <libudev.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/usb_host.h"

namespace pyxis {

namespace {

// A running udev has this socket.
constexpr char kUdevControl[] = "/run/udev/control";

std::string_view Find(const std::map<std::string, std::string>& properties, const char* name) {
  const auto found = properties.find(name);
  return found == properties.end() ? std::string_view() : std::string_view(found->second);
}

// The hexadecimal number at the front of `text`, which ends there or at a slash; the text behind it stays.
std::optional<unsigned> TakeHex(std::string_view& text) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (text.empty()) return value;
  if (text.front() != '/') return std::nullopt;
  text.remove_prefix(1);
  return value;
}

bool IsWriter(const std::map<std::string, std::string>& properties) {
  std::string_view vendorText = Find(properties, "ID_VENDOR_ID"), productText = Find(properties, "ID_MODEL_ID");
  std::optional<unsigned> vendor, product;
  if (!vendorText.empty() && !productText.empty()) {
    vendor = TakeHex(vendorText);
    product = TakeHex(productText);
  } else {
    std::string_view both = Find(properties, "PRODUCT");
    vendor = TakeHex(both);
    product = TakeHex(both);
  }
  return vendor == kWriterVendor && product == kWriterProduct;
}

}  // namespace

std::optional<DeviceEvent> EventOfUdev(const std::map<std::string, std::string>& properties) {
  if (Find(properties, "DEVTYPE") != "usb_device" || !IsWriter(properties)) return std::nullopt;
  const std::string_view action = Find(properties, "ACTION");
  if (action != "add" && action != "remove") return std::nullopt;
  return DeviceEvent{action == "add" ? DeviceEvent::Kind::Arrival : DeviceEvent::Kind::Removal,
                     std::string(Find(properties, "DEVPATH")) + "#{" + kWriterInterfaceClass + "}"};
}

std::optional<DeviceEvent> UdevOrder::EventOf(const std::map<std::string, std::string>& properties) {
  const auto event = EventOfUdev(properties);
  if (!event) return std::nullopt;
  const std::string_view text = Find(properties, "SEQNUM");
  unsigned long long number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc()) return event;
  if (event->kind == DeviceEvent::Kind::Removal && number < arrived_) return std::nullopt;
  if (event->kind == DeviceEvent::Kind::Arrival) arrived_ = std::max(arrived_, number);
  return event;
}

void UdevEvents::Release::operator()(udev* handle) const { udev_unref(handle); }
void UdevEvents::Release::operator()(udev_monitor* monitor) const { udev_monitor_unref(monitor); }

UdevEvents::UdevEvents() : udev_(udev_new()) {
  if (!udev_) return;
  const bool runs = access(kUdevControl, F_OK) == 0;
  monitor_.reset(udev_monitor_new_from_netlink(udev_.get(), runs ? "udev" : "kernel"));
  if (monitor_ && (udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), "usb", "usb_device") < 0 ||
                   udev_monitor_enable_receiving(monitor_.get()) < 0))
    monitor_.reset();
}

std::vector<int> UdevEvents::Descriptors() {
  if (!monitor_) return {};
  return {udev_monitor_get_fd(monitor_.get())};
}

// The monitor's socket doesn't block.
std::vector<DeviceEvent> UdevEvents::Take() {
  std::vector<DeviceEvent> events;
  if (!monitor_) return events;
  while (udev_device* device = udev_monitor_receive_device(monitor_.get())) {
    std::map<std::string, std::string> properties;
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_device_get_properties_list_entry(device)) {
      const char* value = udev_list_entry_get_value(entry);
      properties[udev_list_entry_get_name(entry)] = value == nullptr ? "" : value;
    }
    properties["SEQNUM"] = std::to_string(udev_device_get_seqnum(device));
    udev_device_unref(device);
    if (auto event = order_.EventOf(properties)) events.push_back(*std::move(event));
  }
  return events;
}

}  // namespace pyxis
