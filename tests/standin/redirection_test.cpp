// A guest over a socket pair: the device as a virtual machine sees it.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>
#include <usbredirparser.h>

#include <cstring>

#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "standin/redirection.h"

namespace pyxis::test {
namespace {

// The virtual machine's side: keeps what it hears.
class Guest {
 public:
  explicit Guest(int socket) : socket_(socket), parser_(usbredirparser_create()) {
    parser_->priv = this;
    parser_->log_func = [](void*, int, const char*) {};
    parser_->read_func = [](void* self, std::uint8_t* data, int count) {
      const ssize_t got = recv(Of(self).socket_, data, static_cast<std::size_t>(count), MSG_DONTWAIT);
      return got < 0 ? 0 : static_cast<int>(got);
    };
    parser_->write_func = [](void* self, std::uint8_t* data, int count) {
      return static_cast<int>(send(Of(self).socket_, data, static_cast<std::size_t>(count), 0));
    };
    parser_->hello_func = [](void*, usb_redir_hello_header*) {};
    parser_->interface_info_func = [](void*, usb_redir_interface_info_header*) {};
    parser_->ep_info_func = [](void* self, usb_redir_ep_info_header* info) { Of(self).endpoints = *info; };
    parser_->device_connect_func = [](void* self, usb_redir_device_connect_header* h) { Of(self).device = *h; };
    parser_->control_packet_func = [](void* self, std::uint64_t, usb_redir_control_packet_header* h, std::uint8_t* data,
                                      int size) { Of(self).Take(h->status, data, size); };
    parser_->bulk_packet_func = [](void* self, std::uint64_t, usb_redir_bulk_packet_header* h, std::uint8_t* data,
                                   int size) { Of(self).Take(h->status, data, size); };
    std::uint32_t caps[USB_REDIR_CAPS_SIZE] = {};
    usbredirparser_caps_set_cap(caps, usb_redir_cap_connect_device_version);
    usbredirparser_caps_set_cap(caps, usb_redir_cap_ep_info_max_packet_size);
    usbredirparser_caps_set_cap(caps, usb_redir_cap_64bits_ids);
    usbredirparser_caps_set_cap(caps, usb_redir_cap_32bits_bulk_length);
    char version[] = "guest";
    usbredirparser_init(parser_, version, caps, USB_REDIR_CAPS_SIZE, 0);
  }
  ~Guest() {
    usbredirparser_destroy(parser_);
    close(socket_);
  }
  Guest(const Guest&) = delete;
  Guest& operator=(const Guest&) = delete;

  static Guest& Of(void* self) { return *static_cast<Guest*>(self); }
  void Take(int newStatus, std::uint8_t* bytes, int size) {
    status = newStatus;
    answer.assign(bytes, bytes + (bytes == nullptr ? 0 : size));
    usbredirparser_free_packet_data(parser_, bytes);
  }
  void Exchange(standin::Redirection& writer) {
    for (int i = 0; i < 4; ++i) {
      while (usbredirparser_has_data_to_write(parser_) > 0) usbredirparser_do_write(parser_);
      ASSERT_TRUE(writer.Serve());
      usbredirparser_do_read(parser_);
    }
  }
  void Descriptor(standin::Redirection& writer, std::uint16_t value) {
    usb_redir_control_packet_header h{0x80, 6, 0x80, 0, value, 0, 255};
    usbredirparser_send_control_packet(parser_, 1, &h, nullptr, 0);
    Exchange(writer);
  }
  void Out(standin::Redirection& writer, Bytes bytes) {
    usb_redir_bulk_packet_header h{0x02, 0, static_cast<std::uint16_t>(bytes.size()), 0, 0};
    usbredirparser_send_bulk_packet(parser_, 2, &h, bytes.data(), static_cast<int>(bytes.size()));
    Exchange(writer);
  }
  void In(standin::Redirection& writer, std::uint16_t length) {
    usb_redir_bulk_packet_header h{0x81, 0, length, 0, 0};
    usbredirparser_send_bulk_packet(parser_, 3, &h, nullptr, 0);
    Exchange(writer);
  }

  usb_redir_device_connect_header device{};
  usb_redir_ep_info_header endpoints{};
  int status = -1;
  Bytes answer;

 private:
  int socket_;
  usbredirparser* parser_;
};

TEST(Redirection, AGuestReachesTheWriter) {
  int sockets[2];
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets), 0);
  standin::WriterModel model;
  standin::Redirection writer(model, sockets[0]);
  Guest guest(sockets[1]);
  guest.Exchange(writer);
  EXPECT_EQ(guest.device.vendor_id, 0x7A31);
  EXPECT_EQ(guest.device.product_id, 0x1602);
  EXPECT_EQ(guest.endpoints.type[2], usb_redir_type_bulk);
  EXPECT_EQ(guest.endpoints.type[17], usb_redir_type_bulk);

  guest.Descriptor(writer, 0x0100);
  ASSERT_EQ(guest.answer.size(), 18U);
  EXPECT_EQ(guest.answer[8], 0x31);
  guest.Descriptor(writer, 0x0200);
  EXPECT_EQ(guest.answer.size(), 32U);
  guest.Descriptor(writer, 0x0302);
  EXPECT_EQ(guest.answer.size(), guest.answer[0]);
  guest.Descriptor(writer, 0x0F00);
  EXPECT_EQ(guest.status, usb_redir_stall);

  const CommandBlock block = MakeCommandBlock(26, OP_IDENTITY);
  guest.Out(writer, Bytes(block.begin(), block.end()));
  EXPECT_EQ(guest.status, usb_redir_success);
  guest.In(writer, 26);
  EXPECT_EQ(std::string(guest.answer.begin(), guest.answer.end()), "PYX STANDALONE LOADER_V1.1");
  guest.In(writer, 13);
  EXPECT_EQ(guest.answer.size(), 13U);
  EXPECT_TRUE(model.Violations().empty());
  guest.In(writer, 13);
  EXPECT_EQ(guest.status, usb_redir_stall);
}

TEST(Redirection, GarbageEndsTheConnection) {
  int sockets[2];
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets), 0);
  standin::WriterModel model;
  standin::Redirection writer(model, sockets[0]);
  const Bytes garbage(4096, 0xA5);
  ASSERT_GT(send(sockets[1], garbage.data(), garbage.size(), 0), 0);
  close(sockets[1]);
  bool open = true;
  for (int i = 0; i < 10 && open; ++i) open = writer.Serve();
  EXPECT_FALSE(open);
}

}  // namespace
}  // namespace pyxis::test
