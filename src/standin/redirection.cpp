#include "standin/redirection.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <usbredirparser.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include "platform/usb_host.h"
#include "standin/usb_descriptors.h"

namespace pyxis::standin {

namespace {

constexpr std::uint16_t kRelease = 0x0100;
constexpr std::uint16_t kPacketSize = 512;
// Endpoint tables have 16 places for each direction, in behind out.
constexpr std::size_t kInPlaces = 16;
constexpr std::uint32_t kLongestBulk = 1 << 20;

}  // namespace

// The parser's callbacks; `self` is the connection.
struct Redirection::Callbacks {
  static Redirection& Of(void* self) { return *static_cast<Redirection*>(self); }
  static usbredirparser* ParserOf(void* self) { return Of(self).parser_; }

  static void Log(void*, int, const char*) {}

  static int Read(void* self, std::uint8_t* data, int count) {
    const ssize_t got = recv(*Of(self).socket_, data, static_cast<std::size_t>(count), MSG_DONTWAIT);
    if (got > 0) return static_cast<int>(got);
    return got < 0 && (errno == EAGAIN || errno == EINTR) ? 0 : usbredirparser_read_io_error;
  }

  static int Write(void* self, std::uint8_t* data, int count) {
    const ssize_t sent = send(*Of(self).socket_, data, static_cast<std::size_t>(count), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent >= 0) return static_cast<int>(sent);
    return errno == EAGAIN || errno == EINTR ? 0 : usbredirparser_write_io_error;
  }

  static void Hello(void* self, usb_redir_hello_header*) { Of(self).Announce(); }

  static void Reset(void* self) {
    Of(self).transfers_.clear();
    Of(self).door_.Reconnect();
  }

  static void SendConfiguration(void* self, std::uint64_t id, std::uint8_t status, std::uint8_t value) {
    usb_redir_configuration_status_header answer{status, value};
    usbredirparser_send_configuration_status(ParserOf(self), id, &answer);
  }
  static void SetConfiguration(void* self, std::uint64_t id, usb_redir_set_configuration_header* request) {
    const bool ours = request->configuration <= 1;
    Of(self).door_.Reconnect();
    SendConfiguration(self, id, ours ? usb_redir_success : usb_redir_stall, request->configuration);
  }
  static void GetConfiguration(void* self, std::uint64_t id) { SendConfiguration(self, id, usb_redir_success, 1); }

  static void SendAlternate(void* self, std::uint64_t id, std::uint8_t interface, std::uint8_t alternate) {
    const bool ours = interface == 0 && alternate == 0;
    usb_redir_alt_setting_status_header answer{static_cast<std::uint8_t>(ours ? usb_redir_success : usb_redir_stall),
                                               interface, alternate};
    usbredirparser_send_alt_setting_status(ParserOf(self), id, &answer);
  }
  static void SetAlternate(void* self, std::uint64_t id, usb_redir_set_alt_setting_header* request) {
    SendAlternate(self, id, request->interface, request->alt);
  }
  static void GetAlternate(void* self, std::uint64_t id, usb_redir_get_alt_setting_header* request) {
    SendAlternate(self, id, request->interface, 0);
  }

  static void Control(void* self, std::uint64_t id, usb_redir_control_packet_header* request, std::uint8_t* data, int) {
    usbredirparser_free_packet_data(ParserOf(self), data);
    auto answer =
        AnswerControl({request->requesttype, request->request, request->value, request->index, request->length});
    usb_redir_control_packet_header header = *request;
    header.status = static_cast<std::uint8_t>(answer ? usb_redir_success : usb_redir_stall);
    const bool in = (request->endpoint & 0x80) != 0;
    if (!answer) answer.emplace();
    header.length = in ? static_cast<std::uint16_t>(answer->size()) : request->length;
    usbredirparser_send_control_packet(ParserOf(self), id, &header, answer->data(), static_cast<int>(answer->size()));
  }

  static void Bulk(void* self, std::uint64_t id, usb_redir_bulk_packet_header* request, std::uint8_t* data, int size) {
    Of(self).transfers_.push_back({id, *request, {data, data + std::max(size, 0)}});
    usbredirparser_free_packet_data(ParserOf(self), data);
    Of(self).AnswerTransfers();
  }

  // Transfers that this device has no endpoint for.
  static void DropIso(void* self, std::uint64_t, usb_redir_iso_packet_header*, std::uint8_t* data, int) {
    usbredirparser_free_packet_data(ParserOf(self), data);
  }
  static void DropInterrupt(void* self, std::uint64_t, usb_redir_interrupt_packet_header*, std::uint8_t* data, int) {
    usbredirparser_free_packet_data(ParserOf(self), data);
  }
  // A transfer that has been answered already can't be cancelled any more.
  static void Cancel(void* self, std::uint64_t id) {
    auto& transfers = Of(self).transfers_;
    const auto found = std::find_if(transfers.begin(), transfers.end(), [id](const auto& t) { return t.id == id; });
    if (found == transfers.end()) return;
    Of(self).Answer(*found, usb_redir_cancelled, {});
    transfers.erase(found);
  }
  static void Nothing(void*) {}
  static void DropFilter(void*, usbredirfilter_rule* rules, int) { std::free(rules); }
  static void NoIso(void*, std::uint64_t, usb_redir_start_iso_stream_header*) {}
  static void NoIsoStop(void*, std::uint64_t, usb_redir_stop_iso_stream_header*) {}
  static void NoInterrupt(void*, std::uint64_t, usb_redir_start_interrupt_receiving_header*) {}
  static void NoInterruptStop(void*, std::uint64_t, usb_redir_stop_interrupt_receiving_header*) {}
};

Redirection::Redirection(WriterModel& model, int socket)
    : model_(model), door_(model), socket_(socket), parser_(usbredirparser_create()) {
  parser_->priv = this;
  parser_->log_func = Callbacks::Log;
  parser_->read_func = Callbacks::Read;
  parser_->write_func = Callbacks::Write;
  parser_->hello_func = Callbacks::Hello;
  parser_->reset_func = Callbacks::Reset;
  parser_->set_configuration_func = Callbacks::SetConfiguration;
  parser_->get_configuration_func = Callbacks::GetConfiguration;
  parser_->set_alt_setting_func = Callbacks::SetAlternate;
  parser_->get_alt_setting_func = Callbacks::GetAlternate;
  parser_->start_iso_stream_func = Callbacks::NoIso;
  parser_->stop_iso_stream_func = Callbacks::NoIsoStop;
  parser_->start_interrupt_receiving_func = Callbacks::NoInterrupt;
  parser_->stop_interrupt_receiving_func = Callbacks::NoInterruptStop;
  parser_->cancel_data_packet_func = Callbacks::Cancel;
  parser_->control_packet_func = Callbacks::Control;
  parser_->bulk_packet_func = Callbacks::Bulk;
  parser_->iso_packet_func = Callbacks::DropIso;
  parser_->interrupt_packet_func = Callbacks::DropInterrupt;
  parser_->filter_reject_func = Callbacks::Nothing;
  parser_->filter_filter_func = Callbacks::DropFilter;
  parser_->device_disconnect_ack_func = Callbacks::Nothing;
  std::uint32_t caps[USB_REDIR_CAPS_SIZE] = {};
  usbredirparser_caps_set_cap(caps, usb_redir_cap_connect_device_version);
  usbredirparser_caps_set_cap(caps, usb_redir_cap_ep_info_max_packet_size);
  usbredirparser_caps_set_cap(caps, usb_redir_cap_64bits_ids);
  usbredirparser_caps_set_cap(caps, usb_redir_cap_32bits_bulk_length);
  char version[] = "pyxiswriter";
  usbredirparser_init(parser_, version, caps, USB_REDIR_CAPS_SIZE, usbredirparser_fl_usb_host);
}

// The connection is the cable.
Redirection::~Redirection() {
  model_.LosePower();
  usbredirparser_destroy(parser_);
}

void Redirection::Announce() {
  if (std::exchange(announced_, true)) return;
  usb_redir_interface_info_header interfaces{};
  interfaces.interface_count = 1;
  interfaces.interface_class[0] = 0xFF;
  usbredirparser_send_interface_info(parser_, &interfaces);

  usb_redir_ep_info_header endpoints{};
  std::fill(std::begin(endpoints.type), std::end(endpoints.type), std::uint8_t{usb_redir_type_invalid});
  endpoints.type[0] = endpoints.type[kInPlaces] = usb_redir_type_control;
  for (const std::size_t place : {std::size_t{kEndpointOut}, kInPlaces + (kEndpointIn & 0x0F)}) {
    endpoints.type[place] = usb_redir_type_bulk;
    endpoints.max_packet_size[place] = kPacketSize;
  }
  usbredirparser_send_ep_info(parser_, &endpoints);

  usb_redir_device_connect_header device{};
  device.speed = usb_redir_speed_high;
  device.device_class = 0xFF;
  device.vendor_id = kWriterVendor;
  device.product_id = kWriterProduct;
  device.device_version_bcd = kRelease;
  usbredirparser_send_device_connect(parser_, &device);
}

void Redirection::Answer(const Transfer& transfer, int status, std::span<std::uint8_t> in, std::uint32_t moved) {
  usb_redir_bulk_packet_header header = transfer.header;
  header.status = static_cast<std::uint8_t>(status);
  header.length = static_cast<std::uint16_t>(moved);
  header.length_high = static_cast<std::uint16_t>(moved >> 16);
  usbredirparser_send_bulk_packet(parser_, transfer.id, &header, in.data(), static_cast<int>(in.size()));
}

// A writer that stands still leaves the transfers where they are, as one that doesn't acknowledge them.
void Redirection::AnswerTransfers() {
  for (; !transfers_.empty(); transfers_.pop_front()) {
    Transfer& transfer = transfers_.front();
    const std::uint32_t length = std::uint32_t{transfer.header.length_high} << 16 | transfer.header.length;
    std::vector<std::uint8_t> in;
    int moved = -1;
    if (transfer.header.endpoint == kEndpointOut) {
      moved = door_.Out(transfer.data.data(), static_cast<int>(transfer.data.size()));
    } else if (transfer.header.endpoint == kEndpointIn && length <= kLongestBulk) {
      in.resize(length);
      moved = door_.In(in.data(), static_cast<int>(length));
    }
    if (moved == kSilent) return;
    const auto count = static_cast<std::uint32_t>(std::max(moved, 0));
    in.resize(std::min<std::size_t>(in.size(), count));
    Answer(transfer, moved < 0 ? usb_redir_stall : usb_redir_success, in, count);
  }
}

pollfd Redirection::Wait() const {
  const bool wantsToWrite = usbredirparser_has_data_to_write(parser_) > 0;
  return {*socket_, static_cast<short>(POLLIN | (wantsToWrite ? POLLOUT : 0)), 0};
}

bool Redirection::Serve() {
  if (usbredirparser_do_read(parser_) != 0 || door_.Gone()) return false;
  AnswerTransfers();  // those that a stall has held
  return usbredirparser_has_data_to_write(parser_) == 0 || usbredirparser_do_write(parser_) == 0;
}

RedirectionServer::RedirectionServer(WriterModel& model, std::uint16_t port) : model_(model) {
  Descriptor listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const int on = 1;
  setsockopt(*listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (bind(*listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 && listen(*listener, 1) == 0)
    listener_ = std::move(listener);
}

void RedirectionServer::AddWaits(std::vector<pollfd>& waits) const {
  if (guest_) {
    waits.push_back(guest_->Wait());
  } else {
    waits.push_back({*listener_, POLLIN, 0});
  }
}

void RedirectionServer::Serve() {
  if (guest_) {
    if (!guest_->Serve()) guest_.reset();
    return;
  }
  pollfd wait{*listener_, POLLIN, 0};
  if (poll(&wait, 1, 0) <= 0) return;
  const int guest = accept4(*listener_, nullptr, nullptr, SOCK_CLOEXEC);
  if (guest >= 0) guest_ = std::make_unique<Redirection>(model_, guest);
}

}  // namespace pyxis::standin
