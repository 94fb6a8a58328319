// A guest over a socket pair: the device as a virtual machine sees it.
#include "standin/redirection.h"

#include <sys/socket.h>
#include <unistd.h>
#include <usbredirparser.h>

#include "link/command_frames.h"
#include "link/writer_commands.h"
#include "platform/text.h"
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
    parser->hello_func = [](void*, auto*) {};
    parser->interface_info_func = [](void* self, auto* h) {
      Of(self).Hear("%u interface of class %X", h->interface_count, h->interface_class[0]);
    };
    parser->ep_info_func = [](void* self, auto* h) {
      for (unsigned i = 0; i < 32; ++i)
        if (h->type[i] != usb_redir_type_invalid) Of(self).Hear("%X: %u, %u", i, h->type[i], h->max_packet_size[i]);
    };
    parser->configuration_status_func = [](void* self, auto, auto* h) {
      Of(self).Hear("configuration %u: %u", h->configuration, h->status);
    };
    parser->alt_setting_status_func = [](void* self, auto, auto* h) {
      Of(self).Hear("interface %u, %u: %u", h->interface, h->alt, h->status);
    };
    parser->control_packet_func = [](void* self, auto, auto* h, std::uint8_t* data, int size) {
      Of(self).Hear("control %u, %u, %d bytes", h->status, h->length, size);
      usbredirparser_free_packet_data(Of(self).parser, data);
    };
    parser->device_connect_func = [](void* self, auto* h) { Of(self).device = *h; };
    parser->bulk_packet_func = [](void* self, auto, auto* h, std::uint8_t* data, int size) {
      Of(self).status = h->status;
      Of(self).answer.assign(data, data + (data == nullptr ? 0 : size));
      usbredirparser_free_packet_data(Of(self).parser, data);
    };
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

  Texts Heard() {
    Exchange();
    return std::exchange(heard_, {});
  }
  void Control(std::uint8_t type, std::uint8_t request, std::uint16_t value, std::uint16_t length) {
    usb_redir_control_packet_header h{static_cast<std::uint8_t>(type & 0x80), request, type, 0, value, 0, length};
    usbredirparser_send_control_packet(parser, 3, &h, nullptr, 0);
  }

  int sockets_[2];
  usbredirparser* parser = usbredirparser_create();
  standin::WriterModel model;
  std::unique_ptr<standin::Redirection> writer;
  usb_redir_device_connect_header device{};
  int status = -1;
  Bytes answer;

 private:
  static Redirection& Of(void* self) { return *static_cast<Redirection*>(self); }
  template <typename... Values>
  void Hear(const char* format, Values... values) {
    heard_.push_back(Printf(format, values...));
  }
  Texts heard_;
};

// Endpoint types: 0 control, 2 bulk. Status: 0 success, 4 stall.
TEST_F(Redirection, TellsWhatItIsAndTakesItsConfiguration) {
  EXPECT_EQ(Heard(), (Texts{"1 interface of class FF", "0: 0, 0", "2: 2, 512", "10: 0, 0", "11: 2, 512"}));
  EXPECT_EQ(All(device.vendor_id, device.product_id, device.device_version_bcd), All(0x7A31, 0x1602, 0x100));
  EXPECT_EQ(All(device.speed, device.device_class), All(usb_redir_speed_high, 0xFF));
  for (const std::uint8_t value : {std::uint8_t{1}, std::uint8_t{2}}) {
    usb_redir_set_configuration_header configuration{value};
    usbredirparser_send_set_configuration(parser, 4, &configuration);
    usb_redir_set_alt_setting_header alternate{0, static_cast<std::uint8_t>(value - 1)};
    usbredirparser_send_set_alt_setting(parser, 5, &alternate);
  }
  usbredirparser_send_get_configuration(parser, 6);
  usb_redir_get_alt_setting_header which{1};
  usbredirparser_send_get_alt_setting(parser, 7, &which);
  EXPECT_EQ(Heard(), (Texts{"configuration 1: 0", "interface 0, 0: 0", "configuration 2: 4", "interface 0, 1: 4",
                            "configuration 1: 0", "interface 1, 0: 4"}));
  Control(0x80, 6, 0x0100, 64);
  Control(0x80, 6, 0x0600, 64);
  EXPECT_EQ(Heard(), (Texts{"control 0, 18, 18 bytes", "control 4, 0, 0 bytes"}));
}

TEST_F(Redirection, AGuestReachesTheWriter) {
  Exchange();
  CommandBlock block = MakeCommandBlock(26, OP_IDENTITY);
  EXPECT_EQ(Bulk(13, block.data()), usb_redir_success);
  Bulk(26);
  EXPECT_EQ(std::string(answer.begin(), answer.end()), "PYX STANDALONE LOADER_V1.1");
  Bulk(13);
  EXPECT_EQ(answer.size(), 13U);
  EXPECT_TRUE(model.Violations().empty());
  EXPECT_EQ(Bulk(13), usb_redir_stall);  // nothing to say
  // A new configuration ends a command that lacks its data.
  CommandBlock half = MakeCommandBlock(1, OP_SET_MODE);
  Bulk(13, half.data());
  usb_redir_set_configuration_header configuration{1};
  usbredirparser_send_set_configuration(parser, 4, &configuration);
  EXPECT_EQ(Bulk(13, block.data()), usb_redir_success);
  EXPECT_EQ(Bulk(26), usb_redir_success);
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

TEST_F(Redirection, ADeviceOrAGuestThatGoesOrGarbageEndsTheConnection) {
  Exchange();
  model.faults.disconnectAfter = 0;
  CommandBlock block = MakeCommandBlock(26, OP_IDENTITY);
  usb_redir_bulk_packet_header h{0x02, 0, 13, 0, 0};
  usbredirparser_send_bulk_packet(parser, 2, &h, block.data(), 13);
  usbredirparser_do_write(parser);
  const auto ends = [this] {
    for (int i = 0; i < 10; ++i)
      if (!writer->Serve()) return true;
    return false;
  };
  EXPECT_TRUE(ends());
  model.faults = {};
  const Bytes garbage(4096, 0xA5);
  for (const bool gone : {false, true}) {
    close(sockets_[1]);
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets_), 0);
    writer = std::make_unique<standin::Redirection>(model, sockets_[0]);
    EXPECT_FALSE(ends());
    EXPECT_EQ(gone ? shutdown(Guest(), SHUT_RDWR) : send(Guest(), garbage.data(), garbage.size(), 0), gone ? 0 : 4096);
    EXPECT_TRUE(ends());
  }
  // The cable is out, in the middle of a firmware load: the next one starts anew.
  const auto open = [this] { model.Write(OP_START_TASK, Bytes{50}, standin::Door::Frames); };
  open();
  writer.reset();
  open();
  EXPECT_EQ(model.Violations(), Texts{});
}

}  // namespace
}  // namespace pyxis::test
