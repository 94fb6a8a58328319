// A guest over a socket pair: the device as a virtual machine sees it.
#include "standin/redirection.h"

#include <sys/socket.h>
#include <unistd.h>
#include <usbredirparser.h>

#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "support/bench.h"

namespace pyxis::test {
namespace {

// The two ends of the connection, and the virtual machine's side with what it has heard.
class Redirection : public Bench {
 protected:
  Redirection() {
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets_), 0);
    writer = std::make_unique<standin::Redirection>(model, sockets_[0]);
    parser->priv = this;
    parser->log_func = [](void*, int, const char*) {};
    parser->read_func = [](void* self, std::uint8_t* data, int count) {
      return std::max(0, static_cast<int>(recv(Of(self).Guest(), data, static_cast<std::size_t>(count), MSG_DONTWAIT)));
    };
    parser->write_func = [](void* self, std::uint8_t* data, int count) {
      return static_cast<int>(send(Of(self).Guest(), data, static_cast<std::size_t>(count), 0));
    };
    parser->hello_func = [](void*, usb_redir_hello_header*) {};
    parser->interface_info_func = [](void*, usb_redir_interface_info_header*) {};
    parser->ep_info_func = [](void*, usb_redir_ep_info_header*) {};
    parser->device_connect_func = [](void* self, usb_redir_device_connect_header* h) { Of(self).device = *h; };
    parser->bulk_packet_func = [](void* self, std::uint64_t, usb_redir_bulk_packet_header* h, std::uint8_t* data,
                                  int size) { Of(self).Take(h->status, data, size); };
    std::uint32_t caps[USB_REDIR_CAPS_SIZE] = {};
    for (const int cap : {usb_redir_cap_connect_device_version, usb_redir_cap_ep_info_max_packet_size,
                          usb_redir_cap_64bits_ids, usb_redir_cap_32bits_bulk_length})
      usbredirparser_caps_set_cap(caps, cap);
    char version[] = "guest";
    usbredirparser_init(parser, version, caps, USB_REDIR_CAPS_SIZE, 0);
  }
  ~Redirection() override {
    usbredirparser_destroy(parser);
    close(sockets_[1]);
  }
  int Guest() const { return sockets_[1]; }
  void Exchange() {
    for (int i = 0; i < 4; ++i) {
      while (usbredirparser_has_data_to_write(parser) > 0) usbredirparser_do_write(parser);
      ASSERT_TRUE(writer->Serve());
      usbredirparser_do_read(parser);
    }
  }
  // A bulk transfer: out with bytes, else in; its status.
  int Bulk(std::uint16_t length, std::uint8_t* out = nullptr) {
    usb_redir_bulk_packet_header h{static_cast<std::uint8_t>(out != nullptr ? 0x02 : 0x81), 0, length, 0, 0};
    usbredirparser_send_bulk_packet(parser, 2, &h, out, out != nullptr ? length : 0);
    Exchange();
    return status;
  }

  void Cancel() {
    usbredirparser_send_cancel_data_packet(parser, 2);
    Exchange();
  }

  usbredirparser* parser = usbredirparser_create();
  standin::WriterModel model;
  std::unique_ptr<standin::Redirection> writer;
  usb_redir_device_connect_header device{};
  int status = -1;
  Bytes answer;

 private:
  static Redirection& Of(void* self) { return *static_cast<Redirection*>(self); }
  void Take(int newStatus, std::uint8_t* bytes, int size) {
    status = newStatus;
    answer.assign(bytes, bytes + (bytes == nullptr ? 0 : size));
    usbredirparser_free_packet_data(parser, bytes);
  }
  int sockets_[2];
};

TEST_F(Redirection, AGuestReachesTheWriter) {
  Exchange();
  EXPECT_EQ(All(device.vendor_id, device.product_id), All(0x7A31, 0x1602));
  CommandBlock block = MakeCommandBlock(26, OP_IDENTITY);
  EXPECT_EQ(Bulk(13, block.data()), usb_redir_success);
  Bulk(26);
  EXPECT_EQ(std::string(answer.begin(), answer.end()), "PYX STANDALONE LOADER_V1.1");
  Bulk(13);
  EXPECT_EQ(answer.size(), 13U);
  EXPECT_TRUE(model.Violations().empty());
  EXPECT_EQ(Bulk(13), usb_redir_stall);
}

TEST_F(Redirection, AStallHoldsTransfersUntilItEndsOrTheyAreCancelled) {
  Exchange();
  CommandBlock block = MakeCommandBlock(26, OP_IDENTITY);
  model.faults.stallAfter = 1;
  EXPECT_EQ(Bulk(13, block.data()), usb_redir_success);
  status = -1;
  EXPECT_EQ(Bulk(26), -1);
  Cancel();
  EXPECT_EQ(All(status, answer.size()), All(usb_redir_cancelled, 0U));
  status = -1;
  EXPECT_EQ(Bulk(26), -1);
  model.faults.stallAfter.reset();
  Exchange();
  EXPECT_EQ(All(status, answer.size()), All(usb_redir_success, 26U));
  EXPECT_EQ(Bulk(13), usb_redir_success);
  Cancel();  // answered already
  EXPECT_EQ(status, usb_redir_success);
  EXPECT_TRUE(model.Violations().empty());
}

TEST_F(Redirection, ADeviceThatGoesEndsTheConnection) {
  Exchange();
  model.faults.disconnectAfter = 0;
  CommandBlock block = MakeCommandBlock(26, OP_IDENTITY);
  usb_redir_bulk_packet_header h{0x02, 0, 13, 0, 0};
  usbredirparser_send_bulk_packet(parser, 2, &h, block.data(), 13);
  usbredirparser_do_write(parser);
  bool open = true;
  for (int i = 0; i < 10 && open; ++i) open = writer->Serve();
  EXPECT_FALSE(open);
}

TEST_F(Redirection, GarbageEndsTheConnection) {
  const Bytes garbage(4096, 0xA5);
  ASSERT_GT(send(Guest(), garbage.data(), garbage.size(), 0), 0);
  bool open = true;
  for (int i = 0; i < 10 && open; ++i) open = writer->Serve();
  EXPECT_FALSE(open);
}

}  // namespace
}  // namespace pyxis::test
