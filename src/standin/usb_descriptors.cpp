#include "standin/usb_descriptors.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "platform/usb_host.h"

namespace pyxis::standin {

namespace {

// Fields of two bytes are low byte first.
// clang-format off
constexpr std::uint8_t kDevice[] = {
    18, 1, 0x00, 0x02,                             // USB 2.0
    0xFF, 0, 0, 64,                                // vendor class, control packets of 64 bytes
    kWriterVendor & 0xFF, kWriterVendor >> 8, kWriterProduct & 0xFF, kWriterProduct >> 8,
    0x00, 0x01, 1, 2, 0, 1};  // release 1.00, manufacturer, product, no serial number, one configuration

constexpr std::uint8_t kConfiguration[] = {
    9, 2, 32, 0, 1, 1, 0, 0x80, 50,        // one interface, value 1, bus-powered, 100 mA
    9, 4, 0, 0, 2, 0xFF, 0, 0, 0,          // interface 0, two endpoints
    7, 5, kEndpointOut, 2, 0x00, 0x02, 0,  // bulk out, packets of 512 bytes
    7, 5, kEndpointIn, 2, 0x00, 0x02, 0};  // bulk in
// clang-format on

constexpr std::uint8_t kLanguages[] = {4, 3, 0x09, 0x04};
constexpr std::string_view kStrings[] = {"PyxisLoad", "stand-in writer"};

enum Request : std::uint8_t {
  kGetStatus = 0,
  kClearFeature = 1,
  kSetFeature = 3,
  kSetAddress = 5,
  kGetDescriptor = 6,
  kGetConfiguration = 8,
  kSetConfiguration = 9,
  kGetInterface = 10,
  kSetInterface = 11
};
enum DescriptorType { kDeviceType = 1, kConfigurationType = 2, kStringType = 3 };

constexpr std::uint8_t kFromDevice = 0x80;
constexpr std::uint8_t kTypeBits = 0x60;  // 0: a standard request

using Bytes = std::vector<std::uint8_t>;

std::optional<Bytes> StringDescriptor(unsigned index) {
  if (index == 0) return Bytes(std::begin(kLanguages), std::end(kLanguages));
  if (index > std::size(kStrings)) return std::nullopt;
  Bytes bytes{0, kStringType};
  for (const char c : kStrings[index - 1]) {
    bytes.push_back(static_cast<std::uint8_t>(c));
    bytes.push_back(0);
  }
  bytes[0] = static_cast<std::uint8_t>(bytes.size());
  return bytes;
}

std::optional<Bytes> Descriptor(std::uint16_t value) {
  switch (value >> 8) {
    case kDeviceType:
      return Bytes(std::begin(kDevice), std::end(kDevice));
    case kConfigurationType:
      return Bytes(std::begin(kConfiguration), std::end(kConfiguration));
    case kStringType:
      return StringDescriptor(value & 0xFF);
    default:
      return std::nullopt;
  }
}

std::optional<Bytes> FromDevice(const ControlRequest& request) {
  switch (request.request) {
    case kGetStatus:
      return Bytes{0, 0};
    case kGetDescriptor:
      return Descriptor(request.value);
    case kGetConfiguration:
      return Bytes{1};
    case kGetInterface:
      return Bytes{0};
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<Bytes> AnswerControl(const ControlRequest& request) {
  if ((request.requestType & kTypeBits) != 0) return std::nullopt;
  if ((request.requestType & kFromDevice) != 0) {
    auto data = FromDevice(request);
    if (data) data->resize(std::min<std::size_t>(data->size(), request.length));
    return data;
  }
  switch (request.request) {
    case kClearFeature:
    case kSetFeature:
    case kSetAddress:
    case kSetConfiguration:
    case kSetInterface:
      return Bytes{};
    default:
      return std::nullopt;
  }
}

}  // namespace pyxis::standin
