// Package download, firmware load and Update F/W: their events, and each way in which they fail.
#include "intake/package_files.h"
#include "link/identification.h"
#include "link/writer_commands.h"
#include "operations/download.h"
#include "operations/firmware.h"
#include "pyxisfolder/folder.h"
#include "support/recorded_bench.h"
#include "support/wire_log.h"

namespace pyxis::test {
namespace {

class Transfer : public RecordedOnBoth {
 protected:
  const Bytes option = Bytes(208, 1), data = Bytes(1300, 2);
  const Texts open =
      OnVendor({"bar 0-100 5", "paint"}) + Texts{"w START_TASK 30", "w CONTROL 10"} + OnVendor({"bar 21", "paint"});
  const Texts failed{"box [Message] Loading Data Fail", "hex paint"};
  void Download() {
    Start();
    DownloadPackages();
  }
};

TEST_P(Transfer, Packages) {
  Write(kOptionPackageName, option);
  Write(kDataPackageName, data);
  Download();
  ExpectEvents(Packages(option, data));
  EXPECT_EQ(writer.DataArea(), data);
}

TEST_P(Transfer, EachPackageThatFails) {
  Write(kDataPackageName, data);
  Download();
  ExpectEvents(open + Texts{"w SET_MODE 47", "box [PyxisLoad] Open Fail ! (buffer_option.prog)", "w CONTROL 90"} +
               failed);

  Write(kOptionPackageName, option);
  writer.faults.damageAreaByte = 207;
  Download();
  ExpectEvents(open + PackageFile("04", option) + Texts{"w CONTROL 90"} + failed);

  writer.faults.damageAreaByte = 1299;
  Download();
  ExpectEvents(open + PackageFile("04", option) + OnVendor({"bar 53", "paint"}) + PackageFile("08", data) +
               Texts{"w CONTROL 90", "wait 1500"} + failed);

  std::filesystem::remove(folder / kDataPackageName);
  Download();
  ExpectEvents(open + PackageFile("04", option) + OnVendor({"bar 53", "paint"}) +
               Texts{"w SET_MODE 47", "box [PyxisLoad] Open Fail ! (buffer_data.prog)", "w CONTROL 90", "wait 1500"} +
               failed);
}

TEST_P(Transfer, FirmwareImages) {
  const Bytes image = pyxis::folder::MakeFirmware(Model::Km48, 0x1234);
  for (const Bytes& file : {image, image + Bytes{1}}) {
    Write("a.nce", file);
    Start();
    EXPECT_TRUE(LoadFirmware(Path("a.nce"), true));
    ExpectEvents(Firmware(image));
    EXPECT_FALSE(TheAppState().writer.FirmwareLoadFailed || TheAppState().writer.TransferBusy);
  }
  // The closing pair after a difference is Load File's on the frame link. The failure stays until a good load.
  writer.faults.damageMemoryByte = 0x107FF;
  Start();
  EXPECT_FALSE(LoadFirmware(Path("a.nce"), true));
  Texts events = Firmware(image);
  events.resize(events.size() - 2);  // the closing pair, or the last step
  ExpectEvents(events);
  EXPECT_TRUE(TheAppState().writer.FirmwareLoadFailed && !TheAppState().writer.TransferBusy);
  writer.faults = {};

  for (const auto& bytes : {std::optional<Bytes>(), std::optional(Part(image, 0, 0x107FF))}) {
    std::filesystem::remove(folder / "a.nce");
    if (bytes) Write("a.nce", *bytes);
    TheAppState().writer.FirmwareLoadFailed = false;
    Start();
    EXPECT_FALSE(LoadFirmware(Path("a.nce"), true));
    ExpectEvents({});
    EXPECT_TRUE(TheAppState().writer.FirmwareLoadFailed);
  }
}

INSTANTIATE_TEST_SUITE_P(BothTransports, Transfer, kBothTransports);

class UnknownHardware : public RecordedBench {};

// Without a known identity the memory commands run at the writer's current address.
TEST_F(UnknownHardware, GetsFirmwareWithoutAnAddress) {
  const Bytes image = pyxis::folder::MakeFirmware(Model::Km48, 0x1234);
  Write("a.nce", image);
  writer = standin::WriterModel();
  TheAppState().writer.HwKnown = false;
  Texts wanted = Firmware(image);
  std::erase(wanted, "w SET_ADDRESS 00 00");
  Start();
  EXPECT_TRUE(LoadFirmware(Path("a.nce"), true));
  ExpectEvents(wanted);
}

class Lengths : public ScriptedWriter {};

TEST_F(Lengths, OfPackageFiles) {
  // clang-format off
  for (const auto& [length, sent, good] : Table<std::size_t, const char*, bool>{
           {0, "write 18: ", true}, {131072, "write 18: 131072 bytes", true}, {131073, "", false}}) {
    // clang-format on
    const Bytes bytes(length, 7);
    Write("a", bytes);
    vendor.Script({bytes});
    EXPECT_EQ(DownloadPackageFile(Path("a"), 4), good);
    EXPECT_EQ(vendor.calls.size(), good ? 5U : 1U);
    if (good) {
      EXPECT_EQ(vendor.calls[2], sent);
    }
  }
}

// Zeros are what a buffer holds that nothing has come into: a link that dies before the last byte of the read-back must
// not pass for one that brought them.
class LostReadBack : public BothTransports {
 protected:
  // Whether the load is good when the link is lost after `transfers`; afterwards `left` tells how many weren't used.
  bool GoodAfter(int transfers) {
    StartTask(firmware ? task::kOpenFirmwareLoad : task::kOpenPackageLoad);
    if (!firmware) SendControl(control::kBeginLoad);
    writer.faults.disconnectAfter = transfers;
    const bool good = firmware ? LoadFirmware(Path("zeros"), false) : DownloadPackageFile(Path("zeros"), area::kData);
    left = *writer.faults.disconnectAfter;
    writer.faults.disconnectAfter.reset();
    CloseTransport();
    usb.pluggedIn = vendor.pluggedIn = true;
    OpenTransport();
    if (!firmware || !good) SendControl(control::kEndLoad);
    return good;
  }
  bool firmware = false;
  int left = 0;
};

TEST_P(LostReadBack, OfZerosIsNoGoodTransfer) {
  Write("zeros", Bytes(kFirmwareImageSize, 0));
  for (const auto& [withFirmware, closingCommands] : Table<bool, int>{{false, 1}, {true, 2}}) {
    firmware = withFirmware;
    SCOPED_TRACE(firmware);
    constexpr int kEnough = 100000;
    ASSERT_TRUE(GoodAfter(kEnough));
    // On frames the read ends with its status block, and a command takes three transfers.
    const int behindTheRead = GetParam() == Transport::Usb ? 1 + 3 * closingCommands : closingCommands;
    const int read = kEnough - left - behindTheRead;
    for (const int transfers : {0, read / 2, read - 1}) EXPECT_FALSE(GoodAfter(transfers)) << transfers;
    EXPECT_TRUE(GoodAfter(read));
  }
}
INSTANTIATE_TEST_SUITE_P(BothTransports, LostReadBack, kBothTransports);

class FirmwareSelection : public StandinBench {};

TEST_F(FirmwareSelection, SendsAnImageOnlyWhenItMust) {
  constexpr std::uint32_t kQv8334 = 0x28016, kQv8336 = 0x27091;
  PutFolderFor("QV8334");
  PutFolderFor("QV8336");
  WriterState& state = TheAppState().writer;
  // clang-format off
  for (const auto& [why, chip, code, version, level, loads, codeAfter, versionAfter, levelAfter] :
       Table<const char*, std::uint32_t, std::uint32_t, int, std::uint32_t, int, std::uint32_t, int, std::uint32_t>{
           {"other image", kQv8334, 0, 0, 4, 1, 0x2801, 0, 4}, {"same image, other IC", 0x28011, 0x2801, 1, 4, 0, 0x2801, 1, 4},
           {"other family", kQv8336, 0x2801, 1, 3, 1, 0x709, 1, 3}, {"older version", kQv8334, 0x2801, 0, 4, 1, 0x2801, 1, 4},
           {"newer version", kQv8334, 0x2801, 2, 4, 0, 0x2801, 2, 4}, {"older level", kQv8334, 0x2801, 1, 3, 1, 0x2801, 1, 4},
           {"newer level", kQv8334, 0x2801, 2, 5, 1, 0x2801, 1, 4}}) {
    // clang-format on
    SCOPED_TRACE(why);
    state.FirmwareCode = code;
    state.FirmwareVersion = static_cast<std::uint8_t>(version);
    state.FirmwareLevel = level;
    const int before = writer.FirmwareLoads();
    clock.Waited();
    SelectFirmware(chip);
    EXPECT_EQ(All(writer.FirmwareLoads() - before, clock.Waited()), All(loads, loads * 3000U));
    EXPECT_EQ(All(state.FirmwareCode, state.FirmwareVersion, state.FirmwareLevel),
              All(codeAfter, versionAfter, levelAfter));
  }
  // The version on the disk is signed: 0x80 is older than any.
  Bytes image = Contents("firmware48/QV8333.nce");
  image[0xFA92] = 0x80;
  Write("firmware48/QV8333.nce", image);
  state.FirmwareCode = 0x2801;
  state.FirmwareVersion = 0;
  state.FirmwareLevel = 4;
  const int before = writer.FirmwareLoads();
  SelectFirmware(kQv8334);
  EXPECT_EQ(writer.FirmwareLoads(), before);
}

}  // namespace
}  // namespace pyxis::test
