// The local socket's own protocol, byte by byte.
#include "standin/local_server.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "support/bench.h"

namespace pyxis::test {
namespace {

const Bytes kDone{0};

class LocalDoor : public Bench {
 protected:
  ~LocalDoor() override {
    for (const int client : clients_) close(client);
  }
  int Connect() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    Path("w.sock").copy(address.sun_path, sizeof address.sun_path - 1);
    clients_.push_back(socket(AF_UNIX, SOCK_STREAM, 0));
    EXPECT_EQ(connect(clients_.back(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    server.Serve(0);
    return clients_.back();
  }
  // What comes back; nothing when the server has closed the connection.
  std::optional<Bytes> Hear(int client) {
    std::uint8_t buffer[100];
    const ssize_t count = recv(client, buffer, sizeof buffer, MSG_DONTWAIT);
    return count == 0 ? std::nullopt : std::optional(Bytes(buffer, buffer + std::max<ssize_t>(count, 0)));
  }
  std::optional<Bytes> Say(int client, const Bytes& request) {
    EXPECT_EQ(send(client, request.data(), request.size(), 0), static_cast<ssize_t>(request.size()));
    server.Serve(0);
    return Hear(client);
  }
  static Bytes Request(char kind, std::uint8_t opcode, std::uint32_t length, const Bytes& data = {}) {
    const auto byte = [&](int shift) { return static_cast<std::uint8_t>(length >> shift); };
    return Bytes{static_cast<std::uint8_t>(kind), opcode, 0, 0, byte(0), byte(8), byte(16), byte(24)} + data;
  }
  static Bytes Fault(const std::string& text) {
    return Request('F', 0, static_cast<std::uint32_t>(text.size()), Bytes(text.begin(), text.end()));
  }

  standin::WriterModel writer;
  standin::LocalServer server{writer, Path("w.sock")};

 private:
  std::vector<int> clients_;
};

TEST_F(LocalDoor, RequestsAndNonsense) {
  const std::string identity = writer.identity;
  const Bytes setMode = Request('W', 0, 1, {7}), readIdentity = Request('R', 4, 26);
  const Bytes text = kDone + Bytes(identity.begin(), identity.end());
  using Answer = std::optional<Bytes>;
  // clang-format off
  for (const auto& [what, request, answer] : Table<const char*, Bytes, Answer>{
           {"open", Request('O', 0, 0), kDone}, {"write", setMode, kDone}, {"read", readIdentity, text},
           {"half a head", Part(setMode, 0, 7), Bytes{}}, {"a head alone", Part(setMode, 0, 8), Bytes{}},
           {"two", setMode + readIdentity, kDone + text}, {"one and a half", setMode + Part(setMode, 0, 4), kDone},
           {"unknown kind", Request('X', 0, 0), {}}, {"too long", Request('R', 4, (1 << 20) + 1), {}},
           {"a fault", Fault("no-fault"), kDone}, {"no fault", Fault("fail"), {}}})
    // clang-format on
    EXPECT_EQ(Say(Connect(), request), answer) << what;
  const int slow = Connect();
  EXPECT_EQ(Say(slow, Part(setMode, 0, 8)), Bytes{});
  EXPECT_EQ(Say(slow, {7}), kDone);
  EXPECT_EQ(writer.Violations(), Texts{});
  EXPECT_EQ(Say(slow, Request('W', 9, 2, {1, 2})), kDone);
  EXPECT_EQ(writer.Violations(), Texts{"opcode 9 is not written"});
}

TEST_F(LocalDoor, AStallHoldsEverythingButFaults) {
  const int first = Connect(), second = Connect(), third = Connect();
  const Bytes unknown = Request('W', 9, 0);
  EXPECT_EQ(Say(third, Fault("stall-after 1")), kDone);
  EXPECT_EQ(Say(first, Request('O', 0, 0)), kDone);  // opening is no transfer
  EXPECT_EQ(Say(first, Request('W', 0, 1, {7})), kDone);
  EXPECT_EQ(Say(first, Request('O', 0, 0)), Bytes{});
  EXPECT_EQ(Say(second, Request('R', 4, 26)), Bytes{});
  EXPECT_EQ(Say(third, unknown), Bytes{});
  close(third);
  server.Serve(0);
  const int fourth = Connect();
  EXPECT_EQ(Say(fourth, Fault("no-fault")), kDone);
  EXPECT_EQ(All(Hear(first), Hear(second)->size()), All(std::optional(kDone), 27U));
  EXPECT_EQ(writer.Violations(), Texts{});  // the third one has hung up

  EXPECT_EQ(send(fourth, unknown.data(), unknown.size(), 0), static_cast<ssize_t>(unknown.size()));
  shutdown(fourth, SHUT_RDWR);
  server.Serve(0);
  EXPECT_EQ(writer.Violations(), Texts{});
  EXPECT_EQ(Say(first, Fault("disconnect-after 0")), kDone);
  EXPECT_EQ(Say(first, Request('O', 0, 0)), std::nullopt);
}

TEST_F(LocalDoor, APathThatNoSocketCanHaveIsNoDoor) {
  const std::string path = Path(std::string(120, 'w'));
  EXPECT_FALSE(standin::LocalServer(writer, path).Serve(0));
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace pyxis::test
